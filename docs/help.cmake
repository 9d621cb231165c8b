# The help beside the built programs: help/*.html, and vek9.chm that names its first page. Without the converter
# there is neither, and the help button does nothing.
find_program(HAVUZ_CMARK_GFM cmark-gfm)
if(HAVUZ_CMARK_GFM)
  file(GLOB HAVUZ_HELP_SOURCES CONFIGURE_DEPENDS docs/*.md docs/pictures/*.png
    docs/pictures/*.svg docs/pictures/verification/*.svg)
  add_custom_command(OUTPUT vek9.chm
    COMMAND ${CMAKE_SOURCE_DIR}/docs/make-help ${CMAKE_BINARY_DIR} ${HAVUZ_CMARK_GFM}
    DEPENDS docs/make-help docs/help.css ${HAVUZ_HELP_SOURCES}
    COMMENT "help")
  add_custom_target(havuz_help ALL DEPENDS vek9.chm)
else()
  message(WARNING "cmark-gfm is not installed: the programs are built without their help")
endif()
