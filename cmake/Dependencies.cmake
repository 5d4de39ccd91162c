# SPDX-License-Identifier: GPL-3.0-or-later
# Every library comes from a Debian package; cmake/packages-build.txt lists them.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui LinguistTools Network Widgets)
if(VELMORA_BUILD_TESTS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
endif()
find_package(PkgConfig REQUIRED)
find_package(JPEG REQUIRED)
find_package(SQLiteCpp REQUIRED)
pkg_check_modules(Qpdf REQUIRED IMPORTED_TARGET libqpdf)
# std::shared_ptr in its interface, without the class that stood there in former versions.
target_compile_definitions(PkgConfig::Qpdf INTERFACE POINTERHOLDER_TRANSITION=4)
pkg_check_modules(PopplerQt6 REQUIRED IMPORTED_TARGET poppler-qt6)
pkg_check_modules(Exif REQUIRED IMPORTED_TARGET libexif)
pkg_check_modules(Plist REQUIRED IMPORTED_TARGET libplist-2.0)
pkg_check_modules(Xcb REQUIRED IMPORTED_TARGET xcb)
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
