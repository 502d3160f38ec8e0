# The Qt that all of this is built with: its version is chosen here and nowhere else.
set(default_qt 5)
include(${CMAKE_CURRENT_LIST_DIR}/packagedQt.cmake OPTIONAL)  # of the package that these sources are in
set(NEWPRO_QT ${default_qt} CACHE STRING "Major version of Qt, 5 or 6")
set_property(CACHE NEWPRO_QT PROPERTY STRINGS 5 6)
set(oldest_qt_5 5.15)
set(oldest_qt_6 6.4)
set(qt_package_5 qtbase5-dev)
set(qt_package_6 qt6-base-dev)
set(qt_translations_5 qttranslations5-l10n)
set(qt_translations_6 qt6-translations-l10n)
if(NOT NEWPRO_QT MATCHES "^[56]$")
    message(FATAL_ERROR "NEWPRO_QT has to be 5 or 6, and is \"${NEWPRO_QT}\".")
endif()
set(oldest_qt ${oldest_qt_${NEWPRO_QT}})
set(qt_development_package "${qt_package_${NEWPRO_QT}} (>= ${oldest_qt})")  # Debian's
find_package(Qt${NEWPRO_QT} ${oldest_qt} REQUIRED COMPONENTS Core Gui Widgets)
