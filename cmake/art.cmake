# The art generator (tools/art, FreeType) and what it writes into the build folder beside the
# sample world: the interface sheet, the intro pictures, the Korean glyph sheet and menus.
find_package(Freetype)
if(NOT FREETYPE_FOUND)
  message(STATUS "FreeType not found: the art generator and the program's bitmaps are not built")
  return()
endif()

file(GLOB VOCALOG_ART_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tools/art/*.cpp)
# The sheet map and the faces are compiled in, so the sheet is painted where the kit draws from.
add_executable(vocalog-gen-art ${VOCALOG_ART_SOURCES}
  ${CMAKE_SOURCE_DIR}/kit/sheet_map.cpp ${CMAKE_SOURCE_DIR}/kit/faces.cpp)
target_include_directories(vocalog-gen-art PRIVATE ${CMAKE_SOURCE_DIR})
target_link_libraries(vocalog-gen-art PRIVATE Freetype::Freetype)

set(VOCALOG_MENU_SOURCE ${CMAKE_SOURCE_DIR}/tools/art/korean_menu.txt)
set(VOCALOG_ART_FILES)
foreach(rel IN ITEMS bitmaps/general_interface.bmp bitmaps/intro/english.bmp bitmaps/intro/french.bmp
                     bitmaps/intro/german.bmp bitmaps/intro/italian.bmp bitmaps/intro/spanish.bmp
                     bitmaps/intro/korean.bmp menus/korean/menu_text.bmp menus/korean/Vocalog.txt)
  list(APPEND VOCALOG_ART_FILES ${CMAKE_BINARY_DIR}/Resources/${rel})
endforeach()
add_custom_command(OUTPUT ${VOCALOG_ART_FILES}
  COMMAND vocalog-gen-art --out ${CMAKE_BINARY_DIR} --menu-source ${VOCALOG_MENU_SOURCE}
  DEPENDS vocalog-gen-art ${VOCALOG_MENU_SOURCE}
  COMMENT "Art: interface sheet, intro pictures, Korean glyphs and menus"
  VERBATIM)
add_custom_target(vocalog_art ALL DEPENDS ${VOCALOG_ART_FILES})

# The tools tests compare a fresh run with the staged art.
function(vocalog_art_test_deps)
  if(TARGET test_tools)
    add_dependencies(test_tools vocalog_art)
  endif()
endfunction()
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL vocalog_art_test_deps)
