# Install rules. A build tree, /usr and /usr/local hold the same layout, and the programs find
# what they ship relative to their own executable: the helpers in ../libexec/vellumar (see
# src/cli/HelperProgram_posix.cpp), the shipped data in ../share/vellumar (see
# SystemFolders::sharedDataFolder). So no variable is needed wherever the tree lands.
include(GNUInstallDirs)

set(VELLUMAR_HOMEPAGE "https://vellumar.org" CACHE STRING
    "The project's home page, named by the package and the desktop metadata")
set(VELLUMAR_APPSTREAM_ID "org.vellumar.Vellumar" CACHE STRING
    "The desktop metadata's component id, reverse-DNS under the project's domain")
set(VELLUMAR_RELEASE_DATE "2026-11-23" CACHE STRING "The date of this version")

if(WIN32)
    # The Windows ZIP: the command-line tool with the DLLs it needs beside it, to unpack
    # anywhere; its program folder is its own folder, as the program's is on Windows. It links
    # its runtime statically (cmake/CompileSettings.cmake), so today it needs none but Windows'
    # own; a MinGW library it comes to need is found in the cross compiler's folders.
    install(TARGETS vellumar-cli RUNTIME DESTINATION .)
    if(MINGW)
        find_program(VELLUMAR_MINGW_OBJDUMP x86_64-w64-mingw32-objdump objdump REQUIRED)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++-6.dll
                        OUTPUT_VARIABLE _mingw_runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
        get_filename_component(_mingw_runtime "${_mingw_runtime}" DIRECTORY)
        # install(TARGETS ... RUNTIME_DEPENDENCIES) refuses a cross build; the file command
        # reads the executable's imports with MinGW's objdump.
        install(CODE "
            set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
            set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
            set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND \"${VELLUMAR_MINGW_OBJDUMP}\")
            file(GET_RUNTIME_DEPENDENCIES EXECUTABLES \"$<TARGET_FILE:vellumar-cli>\"
                 RESOLVED_DEPENDENCIES_VAR _dlls UNRESOLVED_DEPENDENCIES_VAR _missing
                 PRE_INCLUDE_REGEXES \"^lib.*[.]dll$\" \"^zlib1[.]dll$\"
                 PRE_EXCLUDE_REGEXES \".*\"
                 DIRECTORIES \"${_mingw_runtime}\" \"${CMAKE_FIND_ROOT_PATH}/lib\")
            if(_missing)
                message(FATAL_ERROR \"vellumar-cli.exe needs DLLs not found: \${_missing}\")
            endif()
            if(_dlls)
                file(INSTALL \${_dlls} DESTINATION \"\${CMAKE_INSTALL_PREFIX}\")
            endif()")
    endif()
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION .)
    return()
endif()

foreach(_dir BINDIR LIBEXECDIR DATADIR)
    if(NOT CMAKE_INSTALL_${_dir} STREQUAL CMAKE_INSTALL_${_dir}_DEFAULT AND
       NOT CMAKE_INSTALL_${_dir} MATCHES "^(bin|libexec|share)$")
        message(WARNING "CMAKE_INSTALL_${_dir} is ${CMAKE_INSTALL_${_dir}}: the programs look for "
                        "their helpers and data in ../libexec/vellumar and ../share/vellumar")
    endif()
endforeach()

set(_data ${CMAKE_INSTALL_DATADIR})
install(TARGETS vellumar-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(VELLUMAR_BUILD_GUI)
    install(TARGETS vellumar RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(TARGETS vellumar-demo vellumar-standin vellumar-play
            RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/vellumar)
endif()
# The default cloud.ini, the message sounds and the starter of a new user's program folder, as
# the build tree holds them.
install(DIRECTORY ${CMAKE_BINARY_DIR}/share/vellumar/ DESTINATION ${_data}/vellumar)

# The desktop: menu entry, icons, metadata.
set(_desktop ${PROJECT_SOURCE_DIR}/resources/desktop)
install(FILES ${_desktop}/vellumar.desktop DESTINATION ${_data}/applications)
install(FILES ${_desktop}/vellumar.svg DESTINATION ${_data}/icons/hicolor/scalable/apps)
configure_file(${_desktop}/vellumar.metainfo.xml.in
               ${CMAKE_BINARY_DIR}/desktop/${VELLUMAR_APPSTREAM_ID}.metainfo.xml @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/desktop/${VELLUMAR_APPSTREAM_ID}.metainfo.xml
        DESTINATION ${_data}/metainfo)

# The PNG sizes are drawn from the SVG; without rsvg-convert the scalable icon serves alone.
find_program(RSVG_CONVERT rsvg-convert)
if(RSVG_CONVERT)
    set(_pngs)
    foreach(_size 16 22 24 32 48 64 128 256)
        set(_png ${CMAKE_BINARY_DIR}/desktop/icons/${_size}x${_size}/vellumar.png)
        add_custom_command(OUTPUT ${_png}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/desktop/icons/${_size}x${_size}
            COMMAND ${RSVG_CONVERT} -w ${_size} -h ${_size} -o ${_png} ${_desktop}/vellumar.svg
            DEPENDS ${_desktop}/vellumar.svg)
        list(APPEND _pngs ${_png})
        install(FILES ${_png} DESTINATION ${_data}/icons/hicolor/${_size}x${_size}/apps)
    endforeach()
    add_custom_target(vellumar-icons ALL DEPENDS ${_pngs})
else()
    message(STATUS "rsvg-convert not found: the icon is installed as SVG only "
                   "(scripts/install-deps.sh package)")
endif()

# Manual pages, compressed as Debian keeps them, and the shell completion.
set(_manuals)
foreach(_page vellumar.1 vellumar-cli.1)
    set(_gz ${CMAKE_BINARY_DIR}/man/${_page}.gz)
    add_custom_command(OUTPUT ${_gz}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
        COMMAND gzip -9n -c ${PROJECT_SOURCE_DIR}/resources/man/${_page} > ${_gz}
        DEPENDS ${PROJECT_SOURCE_DIR}/resources/man/${_page})
    list(APPEND _manuals ${_gz})
endforeach()
add_custom_target(vellumar-manuals ALL DEPENDS ${_manuals})
install(FILES ${_manuals} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PROJECT_SOURCE_DIR}/resources/completion/vellumar-cli
        DESTINATION ${_data}/bash-completion/completions)

# The licence notice where Debian looks for it, and the changes of this version.
install(FILES ${PROJECT_SOURCE_DIR}/resources/debian/copyright DESTINATION ${_data}/doc/vellumar)
configure_file(${PROJECT_SOURCE_DIR}/resources/debian/changelog.in
               ${CMAKE_BINARY_DIR}/debian/changelog @ONLY)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/debian/changelog.Debian.gz
    COMMAND gzip -9n -c ${CMAKE_BINARY_DIR}/debian/changelog > ${CMAKE_BINARY_DIR}/debian/changelog.Debian.gz
    DEPENDS ${CMAKE_BINARY_DIR}/debian/changelog)
add_custom_target(vellumar-changelog ALL DEPENDS ${CMAKE_BINARY_DIR}/debian/changelog.Debian.gz)
install(FILES ${CMAKE_BINARY_DIR}/debian/changelog.Debian.gz DESTINATION ${_data}/doc/vellumar)
