# The programs: vocalog-brief, the command-line briefer (built into the build folder root),
# with SDL's audio output for --speak where SDL2 is found (opened at run time).
add_executable(vocalog-brief ${CMAKE_SOURCE_DIR}/cli/vocalog_brief_main.cpp ${CMAKE_SOURCE_DIR}/cli/brief_sound.cpp)
if(TARGET vocalog_platform_cli)
  target_link_libraries(vocalog-brief PRIVATE vocalog_core vocalog_platform_cli)
else()
  target_link_libraries(vocalog-brief PRIVATE vocalog_headless)
endif()

# The command-line tests run the built program: build it before them.
function(vocalog_cli_test_deps)
  if(TARGET test_cli)
    add_dependencies(test_cli vocalog-brief)
  endif()
endfunction()
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL vocalog_cli_test_deps)
