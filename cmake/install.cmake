# An install tree from which find_package(newProDialog) works.
include(CMakePackageConfigHelpers)

set(targets newProDialog newProHost)
if(NEWPRO_HOST_LIBRARIES STREQUAL "workbenchHost")
    list(APPEND targets workbenchHost)
endif()
install(TARGETS ${targets} EXPORT newProDialogTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES
    core/hostContract.h
    dialog/NewProCfgDialog.h
    dialog/xzGcLxDialog.h
    import/TemplateProListItem.h
    import/importExcelSelFile.h
    ${CMAKE_BINARY_DIR}/include/newProDialog_export.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/newProDialog)
install(DIRECTORY docs/contract/ DESTINATION ${CMAKE_INSTALL_DATADIR}/newProDialog/contract
    FILES_MATCHING PATTERN "*.schema.json")
install(DIRECTORY host/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/newProDialog/host
    FILES_MATCHING PATTERN "*.h")

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/newProDialog)
install(EXPORT newProDialogTargets NAMESPACE newProDialog:: DESTINATION ${package})
configure_package_config_file(cmake/newProDialogConfig.cmake.in
    ${CMAKE_BINARY_DIR}/newProDialogConfig.cmake INSTALL_DESTINATION ${package})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/newProDialogConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/newProDialogConfig.cmake
              ${CMAKE_BINARY_DIR}/newProDialogConfigVersion.cmake
    DESTINATION ${package})
