# Packages: a Debian package of the whole program on Linux (scripts/package.sh), a ZIP of the
# command-line tool for the Windows cross build. Both land in the build folder.
set(CPACK_PACKAGE_NAME vellumar)
set(CPACK_PACKAGE_VENDOR "Vellumar maintainers")
set(CPACK_PACKAGE_CONTACT "Vellumar maintainers <maintainers@users.noreply.c-seed-bcecaea6.example>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "sky, cloud and weather texture manager for Flight Simulator 2004")
set(CPACK_PACKAGE_HOMEPAGE_URL ${VELLUMAR_HOMEPAGE})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_STRIP_FILES ON)

if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME vellumar-cli-${PROJECT_VERSION}-windows-x86_64)
else()
    set(CPACK_GENERATOR DEB)
    set(CPACK_SET_DESTDIR OFF)
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
    # Not "games": Debian keeps that for programs in /usr/games, and this one serves a game.
    set(CPACK_DEBIAN_PACKAGE_SECTION misc)
    set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
    # Libraries from the binaries; then what the program needs without linking it: Qt's media
    # backend (GStreamer) and its plugins for WAV, MP3 and MIDI, and a MIDI soundfont. Wine runs
    # the simulator, which lives elsewhere and is not needed to manage its textures.
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS
        "gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, gstreamer1.0-plugins-bad, timgm6mb-soundfont")
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
    set(CPACK_DEBIAN_PACKAGE_SUGGESTS "wine")
    set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
    # Below the summary line; CPack indents each line and marks the blank one.
    set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
        "Vellumar keeps a library of texture sets (sky, cloud, sun, moon, rain,
snow and effect bitmaps, cloud and effect files) and installs the chosen
one into Flight Simulator 2004 running under Wine, keeping the simulator's
own files so that they can be put back. It changes the sky by itself while
you fly, starts the simulator with a saved situation, rotates its splash
picture, adds sets from archives, and plays sounds, music and audio CDs
beside the flight.

vellumar-cli, a command-line tool over the same functions, comes with it.")
endif()

include(CPack)
