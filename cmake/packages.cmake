# cpack --config BUILD/CPackConfig.cmake: each component as .tar.gz and, on Debian, as .deb; for Windows
# all of them, with the libraries that they need, as one .zip.
set(CPACK_PACKAGE_VENDOR newProDialog)
set(CPACK_PACKAGE_CONTACT "newProDialog <root@localhost>" CACHE STRING
    "Who is named as the maker of the packages")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Dialog for new projects of construction cost estimation")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_GENERATOR TGZ)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
    include(cmake/windows/libraries.cmake)
endif()

find_program(DPKG_DEB dpkg-deb)
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
mark_as_advanced(DPKG_DEB DPKG_SHLIBDEPS)
if(DPKG_DEB AND NOT WIN32)
    list(APPEND CPACK_GENERATOR DEB)
    set(CPACK_DEB_COMPONENT_INSTALL ON)
    set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libnewprodialog${PROJECT_VERSION_MAJOR})
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libnewprodialog-dev)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${qt_development_package}")
    set(CPACK_DEBIAN_WORKBENCH_PACKAGE_NAME newpro-workbench)
    set(CPACK_DEBIAN_WORKBENCH_PACKAGE_SECTION devel)
    set(CPACK_DEBIAN_WORKBENCH_PACKAGE_RECOMMENDS "${qt_translations_${NEWPRO_QT}}")
    if(DPKG_SHLIBDEPS)  # what the programs and libraries are linked with
        set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
        set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
    endif()
endif()

include(CPack)
cpack_add_component(runtime DESCRIPTION "The dialog's library")
cpack_add_component(development DEPENDS runtime
    DESCRIPTION "To build programs that show the dialog")
cpack_add_component(workbench DEPENDS runtime DESCRIPTION "A host to try the dialog with")
