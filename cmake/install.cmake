# An install tree from which find_package(newProDialog) works, in three components: "runtime" is
# what a program needs that shows the dialog, "development" what it needs to be built, "workbench"
# the program to try the dialog with.
include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/newProDialog)
set(libraries
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(TARGETS newProDialog newProHost EXPORT newProDialogTargets ${libraries})
install(FILES
    core/hostContract.h
    dialog/NewProCfgDialog.h
    dialog/xzGcLxDialog.h
    import/TemplateProListItem.h
    import/importExcelSelFile.h
    ${PROJECT_BINARY_DIR}/include/newProDialog_export.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/newProDialog COMPONENT development)
# The module by its sources, with the check and the skeleton: a library that is compiled already
# belongs to the host that it was compiled with.
set(source ${CMAKE_INSTALL_DATADIR}/newProDialog/source)
install(FILES CMakeLists.txt DESTINATION ${source} COMPONENT development)
install(DIRECTORY host core models files import dialog controls conformance examples cmake
    DESTINATION ${source} COMPONENT development)
file(WRITE ${PROJECT_BINARY_DIR}/packagedQt.cmake "set(default_qt ${NEWPRO_QT})\n")
install(FILES ${PROJECT_BINARY_DIR}/packagedQt.cmake DESTINATION ${source}/cmake
    COMPONENT development)
install(DIRECTORY docs/contract DESTINATION ${source}/docs COMPONENT development)
install(FILES docs/writing-a-host.md docs/scenarios.md docs/interface.md docs/trust.md
    DESTINATION ${source}/docs COMPONENT development)
install(DIRECTORY host/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/newProDialog/host
    COMPONENT development FILES_MATCHING PATTERN "*.h")
install(EXPORT newProDialogTargets NAMESPACE newProDialog:: DESTINATION ${package}
    COMPONENT development)

set(host_libraries "${NEWPRO_HOST_LIBRARIES}")
if(TARGET workbenchHost)
    # Part of the runtime: the module that is built with it cannot be loaded without it. Named as a
    # file, so that nobody has to have what it is built with in turn.
    install(TARGETS workbenchHost ${libraries})
    set(host_file ${CMAKE_SHARED_LIBRARY_PREFIX}workbenchHost${CMAKE_SHARED_LIBRARY_SUFFIX})
    if(WIN32)
        set(host_file ${CMAKE_IMPORT_LIBRARY_PREFIX}workbenchHost${CMAKE_IMPORT_LIBRARY_SUFFIX})
    endif()
    set(host_libraries "\${library_folder}/${host_file}")
endif()
# Targets of an enclosing project, which whoever uses the package need not have. They may be made
# after the module: what they are is known once everything is.
set(host_targets "")
foreach(library IN LISTS NEWPRO_HOST_LIBRARIES)
    if(NOT library MATCHES "[/\\]" AND NOT NEWPRO_HOST_PACKAGE AND NOT TARGET workbenchHost)
        list(APPEND host_targets "$<$<TARGET_EXISTS:${library}>:${library}>")
    endif()
endforeach()
configure_package_config_file(cmake/newProDialogConfig.cmake.in
    ${PROJECT_BINARY_DIR}/newProDialogConfig.cmake.in
    INSTALL_DESTINATION ${package} PATH_VARS CMAKE_INSTALL_LIBDIR)
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/newProDialogConfig.cmake
     INPUT ${PROJECT_BINARY_DIR}/newProDialogConfig.cmake.in)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/newProDialogConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/newProDialogConfig.cmake
              ${PROJECT_BINARY_DIR}/newProDialogConfigVersion.cmake
    DESTINATION ${package} COMPONENT development)

if(TARGET newpro-workbench)
    # Its files lie as in the sources, so that the paths between them hold.
    set(data ${CMAKE_INSTALL_DATADIR}/newpro-workbench)
    install(TARGETS newpro-workbench
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT workbench)
    install(DIRECTORY workbench/installation workbench/installation-yunnan
        DESTINATION ${data}/workbench COMPONENT workbench)
    install(DIRECTORY tests/scenarios DESTINATION ${data}/tests COMPONENT workbench
        FILES_MATCHING PATTERN "*.json")
    install(FILES workbench/app/newpro-workbench.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT workbench)
    install(FILES workbench/resources/Workbench/app.svg RENAME newpro-workbench.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT workbench)
    configure_file(workbench/app/newpro-workbench.1.in newpro-workbench.1 @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/newpro-workbench.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT workbench)
endif()
