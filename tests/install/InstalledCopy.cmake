# An installed copy, as a user meets it: `cmake --install` into a scratch prefix, then both
# programs run from there for a user with a fresh home and no VELLUMAR_HOME. The data folder is
# made on the first start, the demo's simulator serves the texture commands, the window reaches
# its ready state and says its welcome once, and completion offers the library's sets.
#
#   cmake -DBUILD_DIR=... -DWORK=... -DCOMPLETE=tests/install/complete.sh -P InstalledCopy.cmake
# Every program run is bounded; a hang fails the test.

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/run)
file(CHMOD ${WORK}/run PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
set(prefix ${WORK}/usr)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix}
                RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE errors TIMEOUT 120)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "cmake --install failed (${status}):\n${errors}")
endif()

# run(NAME HOME STATUS PROGRAM ARGS...): runs PROGRAM for the user whose home is HOME, expects
# STATUS, and leaves its output in NAME_out and NAME_err.
function(run name home expected program)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env --unset=VELLUMAR_HOME --unset=XDG_DATA_HOME
                --unset=XDG_CONFIG_HOME HOME=${home} XDG_RUNTIME_DIR=${WORK}/run
                QT_QPA_PLATFORM=offscreen QT_MEDIA_BACKEND=gstreamer VELLUMAR_EXIT_WHEN_READY=1
                ${run_environment}
                ${program} ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err TIMEOUT 60)
    if(NOT status STREQUAL "${expected}")
        message(FATAL_ERROR "${program} ${ARGN}: exit status ${status}, expected ${expected}\n"
                            "standard output:\n${out}\nstandard error:\n${err}")
    endif()
    set(${name}_out "${out}" PARENT_SCOPE)
    set(${name}_err "${err}" PARENT_SCOPE)
endfunction()

function(expect_match what text regex)
    if(NOT text MATCHES "${regex}")
        message(FATAL_ERROR "${what} does not match '${regex}':\n${text}")
    endif()
endfunction()

set(cli ${prefix}/bin/vellumar-cli)
set(home ${WORK}/home)
set(folder ${home}/.local/share/vellumar)

# Which folder, and why; asking makes nothing.
run(where ${home} 0 ${cli} where)
expect_match("where" "${where_out}"
             "ProgramPath: ${folder}\nProgramPathRule: the user's data folder")
if(EXISTS ${folder})
    message(FATAL_ERROR "vellumar-cli where made ${folder}")
endif()

# The demo generator runs from libexec, and its simulator's fs9.exe starts the installed stand-in.
run(demo ${home} 0 ${cli} demo ${WORK}/demo)
set(simulator "${WORK}/demo/prefix/drive_c/Program Files (x86)/Microsoft Games/Flight Simulator 9")
file(READ "${simulator}/fs9.exe" fs9)
expect_match("the demo's fs9.exe" "${fs9}" "${prefix}/libexec/vellumar/vellumar-standin")
set(run_environment WINEPREFIX=${WORK}/demo/prefix)

# The first texture command makes the folder, says so, and passes every start-up check.
run(sets ${home} 0 ${cli} sets)
expect_match("sets" "${sets_out}" "^My first set\tCumulus\t")
expect_match("the first start's message" "${sets_err}"
             "^== Vellumar ==\nWelcome to Vellumar\\.\n.*${folder}\n.*vellumar-cli import SOURCE")
run(sets_again ${home} 0 ${cli} sets)
if(NOT sets_again_err STREQUAL "")
    message(FATAL_ERROR "the second start said:\n${sets_again_err}")
endif()
run(install ${home} 0 ${cli} install "My first set" --yes)
if(NOT EXISTS "${simulator}/texture/cld01.bmp")
    message(FATAL_ERROR "install put no cld01.bmp into the simulator's texture folder")
endif()

# The window on that folder stands ready.
run(window ${home} 0 ${prefix}/bin/vellumar)

# A user whose first start is the window's: the welcome comes in its message box (which a run
# for a script reports and ends with 2), once.
set(second ${WORK}/second)
run(window_first ${second} 2 ${prefix}/bin/vellumar)
expect_match("the window's first start" "${window_first_err}" "Vellumar\nWelcome to Vellumar\\.")
run(window_again ${second} 0 ${prefix}/bin/vellumar)

# Completion offers the commands and the library's sets, quoted for the shell.
if(EXISTS /usr/share/bash-completion/bash_completion)
    set(completion ${prefix}/share/bash-completion/completions/vellumar-cli)
    set(run_environment WINEPREFIX=${WORK}/demo/prefix PATH=${prefix}/bin:$ENV{PATH})
    run(complete_command ${home} 0 bash ${COMPLETE} ${completion} vellumar-cli ins)
    expect_match("completing ins" "${complete_command_out}" "^install\n$")
    run(complete_set ${home} 0 bash ${COMPLETE} ${completion} vellumar-cli install My)
    expect_match("completing a set" "${complete_set_out}" "^My\\\\ first\\\\ set\n$")
    run(complete_file ${home} 0 bash ${COMPLETE} ${completion} vellumar-cli install
        "My\\ first\\ set" --only cld0)
    expect_match("completing a file" "${complete_file_out}" "^cld01\\.bmp\ncld02\\.bmp\ncld03\\.bmp\n$")
endif()

file(REMOVE_RECURSE ${WORK})
