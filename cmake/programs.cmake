# The programs: vocalog-brief, the command-line briefer (built into the build folder root).
add_executable(vocalog-brief ${CMAKE_SOURCE_DIR}/cli/vocalog_brief_main.cpp)
target_link_libraries(vocalog-brief PRIVATE vocalog_headless)

# The command-line tests run the built program: build it before them.
function(vocalog_cli_test_deps)
  if(TARGET test_cli)
    add_dependencies(test_cli vocalog-brief)
  endif()
endfunction()
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL vocalog_cli_test_deps)
