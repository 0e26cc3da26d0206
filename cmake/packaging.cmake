# Their headings name the version. Packed as Debian wants them, the same bytes each time.
foreach(page norvast_mcp.1 norvast_index.1)
  configure_file(man/${page} ${CMAKE_BINARY_DIR}/man/${page} @ONLY)
  execute_process(COMMAND gzip -9nkf ${CMAKE_BINARY_DIR}/man/${page} COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${CMAKE_BINARY_DIR}/man/${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
# Where the shells of Debian look for what packages bring.
install(FILES indexer/commands/completions/norvast_index.bash RENAME norvast_index
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/bash-completion/completions)
install(FILES indexer/commands/completions/_norvast_index
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/zsh/vendor-completions)
install(FILES indexer/commands/completions/norvast_index.fish
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/fish/vendor_completions.d)
install(FILES README.md CHANGELOG.md LICENSE SECURITY.md docs/using.md cmake/copyright
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/norvast-mcp)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME norvast-mcp)
set(CPACK_PACKAGE_CONTACT "The norvast_mcp maintainers <maintainers@norvast.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Lets AI clients look at the files that you chose")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
# The libraries that the programs link; besides, the recogniser's model, which is opened by name.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "tesseract-ocr-eng")
# Without it, PDFs in Asian languages whose fonts are not embedded give no text.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "poppler-data")
include(CPack)
