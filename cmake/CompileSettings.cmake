# One place for the settings every target shares: the language level, the warnings and the
# sanitizers. Targets link vellumar_common_cfg instead of repeating flags.
add_library(vellumar_common_cfg INTERFACE)
target_compile_features(vellumar_common_cfg INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)

if(MSVC)
    target_compile_options(vellumar_common_cfg INTERFACE /W4 /permissive- /utf-8)
else()
    target_compile_options(vellumar_common_cfg INTERFACE -Wall -Wextra)
    # GCC 12 at -O3 warns about its own std::string concatenation (GCC bug 105329); the
    # warning points into libstdc++, never at our code.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(vellumar_common_cfg INTERFACE -Wno-restrict)
    endif()
endif()

if(WIN32)
    # Windows headers: no min/max macros, no rarely used APIs, and the ANSI (A) entry points
    # by default, because the profile and registry code works on the system code page.
    target_compile_definitions(vellumar_common_cfg INTERFACE
        NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
    if(MINGW)
        # Without a static runtime the executables exit silently with code 53 under Wine.
        target_link_options(vellumar_common_cfg INTERFACE -static)
    endif()
endif()

if(VELLUMAR_SANITIZE)
    target_compile_options(vellumar_common_cfg INTERFACE
        -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(vellumar_common_cfg INTERFACE -fsanitize=address,undefined)
endif()

if(VELLUMAR_FUZZ)
    target_compile_options(vellumar_common_cfg INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
    target_link_options(vellumar_common_cfg INTERFACE -fsanitize=address,undefined)
endif()

# The Qt side is strict about text: every conversion from a byte string is spelled out.
set(VELLUMAR_QT_DEFINITIONS
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_NO_CAST_FROM_BYTEARRAY QT_USE_QSTRINGBUILDER QT_NO_KEYWORDS)
