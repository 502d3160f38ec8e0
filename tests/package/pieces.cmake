# Read by the module's project() in the tests. These name themselves in `source`, each its own way,
# and cannot be compiled in one piece with the rest.
cmake_language(DEFER CALL set_source_files_properties
    dialog/xzGcLxDialog.cpp import/TemplateProListItem.cpp import/importExcelSelFile.cpp
    models/ProModelItemForm.cpp
    TARGET_DIRECTORY newProDialogObjects PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
