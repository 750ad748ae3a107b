# Everything that is not ours. All of it comes as packages of the system: see packages.txt.
find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
# CMake may be older than this Boost, and would warn of it many times.
set(Boost_NO_WARN_NEW_VERSIONS ON)
find_package(Boost 1.81 REQUIRED COMPONENTS serialization program_options)
find_package(SQLite3 REQUIRED)
pkg_check_modules(POLYCLIPPING REQUIRED IMPORTED_TARGET polyclipping)
pkg_check_modules(GTK REQUIRED IMPORTED_TARGET gtk+-3.0)
pkg_check_modules(GLIB REQUIRED IMPORTED_TARGET glib-2.0)

set(wxWidgets_CONFIG_OPTIONS --toolkit=gtk3 --version=3.2)
find_package(wxWidgets 3.2 REQUIRED COMPONENTS ribbon xrc adv core xml html base)
add_library(tessaron_wx INTERFACE)
target_include_directories(tessaron_wx SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
target_compile_definitions(tessaron_wx INTERFACE ${wxWidgets_DEFINITIONS})
target_compile_options(tessaron_wx INTERFACE ${wxWidgets_CXX_FLAGS})
target_link_libraries(tessaron_wx INTERFACE ${wxWidgets_LIBRARIES})

if(TESSARON_BUILD_TESTS OR TESSARON_BUILD_BENCH)
  find_package(GTest REQUIRED)
  pkg_check_modules(XTEST REQUIRED IMPORTED_TARGET xtst x11)
endif()

find_program(SQLITE3_PROGRAM sqlite3 REQUIRED)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
