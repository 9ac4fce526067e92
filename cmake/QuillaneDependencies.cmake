# Finds what the system installs; nothing is downloaded. The package names of Debian stand in packaging/debian-packages.
find_package(PkgConfig REQUIRED)
pkg_check_modules(fox REQUIRED IMPORTED_TARGET GLOBAL fox>=1.6.57)
find_package(SQLite3 REQUIRED)
find_package(pugixml REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)
find_package(Intl REQUIRED)

find_program(QUILLANE_RESWRAP NAMES reswrap reswrap-1.6 REQUIRED)
find_program(QUILLANE_MSGFMT NAMES msgfmt REQUIRED)

# libcsv comes without a pkg-config file.
find_path(LIBCSV_INCLUDE_DIR csv.h REQUIRED)
find_library(LIBCSV_LIBRARY csv REQUIRED)
add_library(libcsv INTERFACE IMPORTED GLOBAL)
target_include_directories(libcsv SYSTEM INTERFACE "${LIBCSV_INCLUDE_DIR}")
target_link_libraries(libcsv INTERFACE "${LIBCSV_LIBRARY}")
