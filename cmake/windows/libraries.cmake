# What the program needs beside itself, as Windows looks there first: Qt with its plug-ins, and whatever
# else its libraries are linked with and Windows does not have.
set(plugins ${Qt${NEWPRO_QT}_DIR}/../../../plugins)
foreach(plugin platforms/qwindows platforms/qoffscreen imageformats/qsvg iconengines/qsvgicon)
    get_filename_component(folder ${plugin} DIRECTORY)
    install(FILES ${plugins}/${plugin}.dll DESTINATION ${CMAKE_INSTALL_BINDIR}/${folder} COMPONENT workbench)
    list(APPEND plugin_files ${plugins}/${plugin}.dll)
endforeach()
# Debian's compiler keeps the libraries of the language beside itself.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++-6.dll
    OUTPUT_VARIABLE language OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(language ${language} DIRECTORY)
list(GET CMAKE_FIND_ROOT_PATH 0 root)
list(GET CMAKE_FIND_ROOT_PATH 1 system)
install(CODE "
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND \"${CMAKE_OBJDUMP}\")
    file(GET_RUNTIME_DEPENDENCIES
        EXECUTABLES \"$<TARGET_FILE:newpro-workbench>\"
        LIBRARIES \"$<TARGET_FILE:newProDialog>\" ${plugin_files}
        DIRECTORIES \"$<TARGET_FILE_DIR:newProDialog>\" ${root}/bin ${root}/lib ${language} ${system}/lib ${system}/bin
        RESOLVED_DEPENDENCIES_VAR found UNRESOLVED_DEPENDENCIES_VAR of_windows)
    file(INSTALL \${found} DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
" COMPONENT workbench)
