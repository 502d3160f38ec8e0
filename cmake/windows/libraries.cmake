# What the program needs beside itself, as Windows looks there first: Qt's plug-ins, and the libraries that
# all of it is linked with and Windows does not have.
foreach(plugin platforms/qwindows platforms/qoffscreen imageformats/qsvg iconengines/qsvgicon)
    get_filename_component(folder ${plugin} DIRECTORY)
    install(FILES ${Qt${NEWPRO_QT}_DIR}/../../../plugins/${plugin}.dll
        DESTINATION ${CMAKE_INSTALL_BINDIR}/${folder} COMPONENT workbench)
endforeach()
# Qt looks for its texts in the folder above that of its libraries.
install(FILES ${Qt${NEWPRO_QT}_DIR}/../../../translations/qtbase_zh_CN.qm
    DESTINATION translations COMPONENT workbench)
# Debian's compiler keeps the libraries of the language beside itself.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++-6.dll
    OUTPUT_VARIABLE language OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(language ${language} DIRECTORY)
set(folders ${language})
foreach(root IN LISTS CMAKE_FIND_ROOT_PATH)
    list(APPEND folders ${root}/bin ${root}/lib)
endforeach()
install(CODE "set(objdump ${CMAKE_OBJDUMP})\nset(folders ${folders})
set(programs \${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR})" COMPONENT workbench)
install(SCRIPT cmake/windows/copyLibraries.cmake COMPONENT workbench)
