# What `cmake --install` puts where, and the Debian package that CPack makes of it:
#   cpack -G DEB -B DIR --config build/release/CPackConfig.cmake

# Compressed as the Debian policy asks: best, without name and time.
find_program(HAVUZ_GZIP gzip REQUIRED)
set(HAVUZ_COMPRESSED "")
function(havuz_install_compressed source name destination)
  set(compressed packaging/${name}.gz)
  add_custom_command(OUTPUT ${compressed}
    COMMAND ${CMAKE_COMMAND} -E make_directory packaging
    COMMAND ${HAVUZ_GZIP} -9nc ${CMAKE_SOURCE_DIR}/${source} > ${compressed}
    DEPENDS ${source} VERBATIM)
  install(FILES ${CMAKE_BINARY_DIR}/${compressed} DESTINATION ${destination})
  set(HAVUZ_COMPRESSED ${HAVUZ_COMPRESSED} ${compressed} PARENT_SCOPE)
endfunction()

install(TARGETS havuz havuz-cli havuz-raporcu)
# havuz-cli looks there. Right in lib/havuz it would count as a library of the system that ldconfig has to know.
install(TARGETS havuz_pictures LIBRARY DESTINATION lib/havuz/modules)
install(DIRECTORY programdir/ DESTINATION ${CMAKE_INSTALL_DATADIR}/havuz)
install(FILES packaging/WORKING.DIR DESTINATION ${CMAKE_INSTALL_DATADIR}/havuz)
if(HAVUZ_CMARK_GFM)
  install(FILES ${CMAKE_BINARY_DIR}/vek9.chm DESTINATION ${CMAKE_INSTALL_DATADIR}/havuz)
  install(DIRECTORY ${CMAKE_BINARY_DIR}/help DESTINATION ${CMAKE_INSTALL_DATADIR}/havuz)
endif()

# The desktop: menu entry, file type, icons, software catalogue.
set(icons src/ui/qt/icons)
set(hicolor ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable)
install(FILES packaging/havuz.desktop packaging/havuz-raporcu.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/havuz.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${icons}/havuz.svg DESTINATION ${hicolor}/apps)
install(FILES ${icons}/application-x-havuz.svg DESTINATION ${hicolor}/mimetypes)
install(FILES packaging/localhost.havuz.havuz.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# Documents and the shell.
havuz_install_compressed(packaging/havuz.1 havuz.1 ${CMAKE_INSTALL_MANDIR}/man1)
havuz_install_compressed(packaging/havuz-raporcu.1 havuz-raporcu.1 ${CMAKE_INSTALL_MANDIR}/man1)
havuz_install_compressed(packaging/havuz-cli.1 havuz-cli.1 ${CMAKE_INSTALL_MANDIR}/man1)
havuz_install_compressed(CHANGELOG.md changelog ${CMAKE_INSTALL_DOCDIR})
havuz_install_compressed(packaging/debian-changelog changelog.Debian ${CMAKE_INSTALL_DOCDIR})
install(FILES packaging/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES packaging/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME havuz)
set(completions ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES packaging/completion DESTINATION ${completions} RENAME havuz)
install(FILES packaging/completion DESTINATION ${completions} RENAME havuz-cli)
add_custom_target(havuz_compressed ALL DEPENDS ${HAVUZ_COMPRESSED})

# The package. Libraries come from dpkg-shlibdeps; Qt's own Turkish texts are found at run time only.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME havuz)
set(CPACK_PACKAGE_CONTACT "Havuz developers <havuz@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1) # with debian-changelog
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-translations-l10n)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "design and analysis of reinforced-concrete pools")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Havuz takes a pool or a tank from its measures to its results. Rectangular and
circular pools of a library and pools of any outline are meshed into four-node
shells on an elastic foundation and analysed for liquid, soil and groundwater
in one run. Displacements, stresses and moments go into result files; the
meshed model can be exported for STAAD-III and SAP90.
.
The window program havuz speaks Turkish; havuz-cli does the same jobs from a
shell.")
include(CPack)
