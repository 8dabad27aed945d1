# Tests that need the windowed layer: tests/platform and tests/gl, linked with vocalog_gui.
# Without a display SDL picks its offscreen driver, so a real Mesa context exists headless.
if(NOT TARGET vocalog_gui)
  return()
endif()


function(vocalog_gui_test_dir dir)
  file(GLOB srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.cpp)
  if(NOT srcs)
    return()
  endif()
  # The support files minus the windowless layer, which vocalog_gui replaces.
  # LeakSanitizer is off in these executables only (gui_support/asan_options.cpp): Mesa and
  # SDL keep a few allocations for the life of the process.
  add_executable(test_${dir} ${srcs} ${VOCALOG_TEST_SUPPORT}
    ${CMAKE_CURRENT_SOURCE_DIR}/gui_support/asan_options.cpp)
  target_link_libraries(test_${dir} PRIVATE vocalog_test_main vocalog_gui GTest::gtest)
  gtest_discover_tests(test_${dir}
    WORKING_DIRECTORY ${VOCALOG_TEST_HOME}
    DISCOVERY_TIMEOUT 60
    DISCOVERY_MODE PRE_TEST)
endfunction()

vocalog_gui_test_dir(platform)
vocalog_gui_test_dir(gl)
# The kit's pixel tests compare drawing with the generated interface sheet.
if(TARGET test_gl AND TARGET vocalog_art)
  add_dependencies(test_gl vocalog_art)
endif()

# Real X input (xdotool on a private Xvfb display) through the window program's whole path.
# The X tests run one at a time, each on its own server: once, started beside the whole-program
# test on a loaded machine, the chooser test's program found no X server behind its DISPLAY.
find_program(VOCALOG_XVFB_RUN xvfb-run)
find_program(VOCALOG_XDOTOOL xdotool)
if(VOCALOG_XVFB_RUN AND VOCALOG_XDOTOOL AND TARGET vocalog-gl-check)
  add_test(NAME X11.WindowInputArrivesAsTyped
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/x11/window_input_test.sh $<TARGET_FILE:vocalog-gl-check>)
  set_tests_properties(X11.WindowInputArrivesAsTyped PROPERTIES TIMEOUT 90 RESOURCE_LOCK xvfb)
endif()

# The whole windowed program driven like a pilot would: chooser, pickers, briefing, file, quit.
if(VOCALOG_XVFB_RUN AND VOCALOG_XDOTOOL AND TARGET vocalog)
  add_test(NAME X11.VocalogWholeProgram
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/x11/vocalog_program_test.sh $<TARGET_FILE:vocalog>)
  set_tests_properties(X11.VocalogWholeProgram PROPERTIES TIMEOUT 300 RESOURCE_LOCK xvfb)
endif()

# The file chooser behind the aircraft button, in a real X window: a small program of its own,
# run from the build folder, which holds the sample hangar and the interface art.
add_executable(vocalog-chooser-check ${CMAKE_CURRENT_SOURCE_DIR}/x11/chooser_window_main.cpp)
target_link_libraries(vocalog-chooser-check PRIVATE vocalog_gui)
if(TARGET vocalog_art)
  add_dependencies(vocalog-chooser-check vocalog_sim_data vocalog_art)
endif()
if(VOCALOG_XVFB_RUN AND VOCALOG_XDOTOOL AND TARGET vocalog_art)
  add_test(NAME X11.FileChooserWalksPicksAndCancels
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/x11/file_chooser_test.sh $<TARGET_FILE:vocalog-chooser-check>)
  set_tests_properties(X11.FileChooserWalksPicksAndCancels PROPERTIES TIMEOUT 120 RESOURCE_LOCK xvfb)
endif()
