# What `cmake --install` puts where.
install(TARGETS havuz havuz-cli)
install(DIRECTORY programdir/ DESTINATION ${CMAKE_INSTALL_DATADIR}/havuz)
install(FILES packaging/WORKING.DIR DESTINATION ${CMAKE_INSTALL_DATADIR}/havuz)
if(HAVUZ_CMARK_GFM)
  install(FILES ${CMAKE_BINARY_DIR}/vek9.chm DESTINATION ${CMAKE_INSTALL_DATADIR}/havuz)
  install(DIRECTORY ${CMAKE_BINARY_DIR}/help DESTINATION ${CMAKE_INSTALL_DATADIR}/havuz)
endif()
