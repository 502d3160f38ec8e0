# The one export macro, generated: NEWPRO_EXPORT in newProDialog_export.h.
include(GenerateExportHeader)
generate_export_header(newProDialog
    EXPORT_MACRO_NAME NEWPRO_EXPORT
    EXPORT_FILE_NAME ${PROJECT_BINARY_DIR}/include/newProDialog_export.h)
target_include_directories(newProDialog PUBLIC
    $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/newProDialog>)
foreach(room core dialog import)
    target_include_directories(newProDialog PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/${room}>)
endforeach()
target_include_directories(newProDialogObjects PUBLIC ${PROJECT_BINARY_DIR}/include)
