# CLI11, the command-line parser of vellumar-cli: header-only, so the Windows cross build uses
# the same Debian package (libcli11-dev) as the native one.
#
# The cross toolchain looks for packages only under the MinGW root, where no CLI11 is, so there
# the host's copy is looked up outside that root. Its target names /usr/include as the include
# folder, and the cross compiler must not search that: glibc's headers would stand in front of
# MinGW's own. The cross build therefore gets a folder of its own holding CLI11's headers and
# nothing else.
if(CMAKE_CROSSCOMPILING)
    find_package(CLI11 2.1 CONFIG REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    get_target_property(_cli11_include CLI11::CLI11 INTERFACE_INCLUDE_DIRECTORIES)
    set(_cli11_own_include ${CMAKE_BINARY_DIR}/cli11/include)
    file(COPY ${_cli11_include}/CLI DESTINATION ${_cli11_own_include})
    set_target_properties(CLI11::CLI11 PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${_cli11_own_include})
else()
    find_package(CLI11 2.1 CONFIG REQUIRED)
endif()
