# Generators of the bundled sample simulator folder (data/sim) and of test files; see docs/sample-world.md.
set(VOCALOG_GENERATORS apt metar acf prefs)
foreach(gen IN LISTS VOCALOG_GENERATORS)
  add_executable(vocalog-gen-${gen} ${CMAKE_SOURCE_DIR}/tools/gen_${gen}_main.cpp)
  target_include_directories(vocalog-gen-${gen} PRIVATE ${CMAKE_SOURCE_DIR})
endforeach()

# The tools tests run the generators; build them first once the test targets exist.
function(vocalog_tools_test_deps)
  if(TARGET test_tools)
    foreach(gen IN LISTS VOCALOG_GENERATORS)
      add_dependencies(test_tools vocalog-gen-${gen})
    endforeach()
  endif()
endfunction()
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL vocalog_tools_test_deps)
