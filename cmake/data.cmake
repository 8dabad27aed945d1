# Copies the bundled sample simulator folder data/sim/ next to the executables, so that the
# build folder is itself a simulator folder (apt.dat, metar.rwx and the aircraft beside the program).
set(VOCALOG_SIM_SOURCE ${CMAKE_SOURCE_DIR}/data/sim)
file(GLOB_RECURSE VOCALOG_SIM_FILES CONFIGURE_DEPENDS ${VOCALOG_SIM_SOURCE}/*)
set(VOCALOG_SIM_COPIES)
foreach(src IN LISTS VOCALOG_SIM_FILES)
  file(RELATIVE_PATH rel ${VOCALOG_SIM_SOURCE} ${src})
  set(dst ${CMAKE_BINARY_DIR}/${rel})
  add_custom_command(OUTPUT ${dst}
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${src} ${dst}
    DEPENDS ${src}
    COMMENT "Sample world: ${rel}"
    VERBATIM)
  list(APPEND VOCALOG_SIM_COPIES ${dst})
endforeach()
add_custom_target(vocalog_sim_data ALL DEPENDS ${VOCALOG_SIM_COPIES})
