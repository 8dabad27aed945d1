# The SDL2 platform layer, the windowed link target and the GL demonstration program.
find_package(PkgConfig)
if(PkgConfig_FOUND)
  pkg_check_modules(SDL2 IMPORTED_TARGET sdl2)
endif()
if(NOT SDL2_FOUND)
  message(STATUS "SDL2 not found: the windowed layer and its programs are not built")
  return()
endif()

file(GLOB VOCALOG_SDL_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/sdl/*.cpp)
add_library(vocalog_platform_sdl STATIC ${VOCALOG_POSIX_SOURCES} ${VOCALOG_SDL_SOURCES})
target_include_directories(vocalog_platform_sdl PUBLIC ${CMAKE_SOURCE_DIR})
target_link_libraries(vocalog_platform_sdl PUBLIC PkgConfig::SDL2 ${CMAKE_DL_LIBS})

# The command-line layer: no window, and SDL's audio output opened only when a sound plays, so
# that a briefing starts without loading SDL and the libraries behind it.
set(VOCALOG_CLI_PLATFORM_SOURCES ${VOCALOG_NULL_SOURCES})
list(FILTER VOCALOG_CLI_PLATFORM_SOURCES EXCLUDE REGEX "null_audio\\.cpp$")
add_library(vocalog_platform_cli STATIC ${VOCALOG_POSIX_SOURCES} ${VOCALOG_CLI_PLATFORM_SOURCES}
            ${CMAKE_SOURCE_DIR}/platform/sdl/sdl_audio.cpp)
target_compile_definitions(vocalog_platform_cli PRIVATE VOCALOG_SDL_AUDIO_LOADED)
target_include_directories(vocalog_platform_cli PUBLIC ${CMAKE_SOURCE_DIR}
                           PRIVATE $<TARGET_PROPERTY:PkgConfig::SDL2,INTERFACE_INCLUDE_DIRECTORIES>)
target_link_libraries(vocalog_platform_cli PUBLIC ${CMAKE_DL_LIBS})

# The program's code with the windowed layer. GL entry points come through SDL's look-up,
# so no GL library is linked; the GL headers are all that is needed.
add_library(vocalog_gui INTERFACE)
target_link_libraries(vocalog_gui INTERFACE vocalog_core vocalog_platform_sdl PkgConfig::SDL2)

if(EXISTS ${CMAKE_SOURCE_DIR}/app/gl_check_main.cpp)
  add_executable(vocalog-gl-check ${CMAKE_SOURCE_DIR}/app/gl_check_main.cpp)
  target_link_libraries(vocalog-gl-check PRIVATE vocalog_gui)
endif()

# Vocalog, the windowed program.
add_executable(vocalog ${CMAKE_SOURCE_DIR}/app/vocalog_main.cpp)
target_link_libraries(vocalog PRIVATE vocalog_gui)

# The menu bar of one language with its File menu open, drawn from the generated art.
if(EXISTS ${CMAKE_SOURCE_DIR}/app/menu_shot_main.cpp)
  add_executable(vocalog-menu-shot ${CMAKE_SOURCE_DIR}/app/menu_shot_main.cpp)
  target_link_libraries(vocalog-menu-shot PRIVATE vocalog_gui)
endif()

# The widget screen: every widget, both alert kinds and the progress screen as one PNG.
# `cmake --build <dir> --target widgets-shot` redraws docs/widgets.png from the generated art.
find_package(ZLIB)
if(ZLIB_FOUND AND EXISTS ${CMAKE_SOURCE_DIR}/app/widgets_demo_main.cpp)
  add_executable(vocalog-widgets-demo ${CMAKE_SOURCE_DIR}/app/widgets_demo_main.cpp ${CMAKE_SOURCE_DIR}/app/png_file.cpp)
  target_link_libraries(vocalog-widgets-demo PRIVATE vocalog_gui ZLIB::ZLIB)
  add_custom_target(widgets-shot
    COMMAND vocalog-widgets-demo ${CMAKE_SOURCE_DIR}/docs/widgets.png
    VERBATIM)
  function(vocalog_widgets_shot_deps)
    add_dependencies(widgets-shot vocalog-widgets-demo vocalog_sim_data)
    if(TARGET vocalog_art)
      add_dependencies(widgets-shot vocalog_art)
    endif()
  endfunction()
  cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL vocalog_widgets_shot_deps)
endif()

# The interface kit's gallery: every face, bar, panel and number form drawn from the
# program folder's bitmaps (the build folder by default) into one screenshot.
add_executable(vocalog-gallery ${CMAKE_SOURCE_DIR}/app/gallery_main.cpp)
target_link_libraries(vocalog-gallery PRIVATE vocalog_gui)
# `cmake --build <dir> --target gallery` redraws docs/gallery.png (ImageMagick makes the PNG).
find_program(VOCALOG_CONVERT convert)
if(VOCALOG_CONVERT)
  add_custom_target(gallery
    COMMAND vocalog-gallery ${CMAKE_BINARY_DIR} ${CMAKE_BINARY_DIR}/gallery.ppm
    COMMAND ${VOCALOG_CONVERT} ${CMAKE_BINARY_DIR}/gallery.ppm -strip ${CMAKE_SOURCE_DIR}/docs/gallery.png
    VERBATIM)
  add_dependencies(gallery vocalog-gallery vocalog_art)
endif()

if(VOCALOG_BENCH)
  find_package(benchmark REQUIRED)
  file(GLOB VOCALOG_GL_BENCH_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bench/gl/*_bench.cpp
       ${CMAKE_SOURCE_DIR}/bench/audio/*_bench.cpp)
  foreach(src ${VOCALOG_GL_BENCH_SOURCES})
    get_filename_component(name ${src} NAME_WE)
    add_executable(${name} ${src})
    target_link_libraries(${name} PRIVATE vocalog_gui benchmark::benchmark_main)
  endforeach()
endif()
