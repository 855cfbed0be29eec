# Checks the hardening of the released program: a position-independent executable
# with read-only relocations bound at start, protected stacks, fortified calls, no memory that is
# both writable and executable, no search path of its own for libraries, and no way to a shell.
# The program is the one that VIRELINE_TESTED_PROGRAM names: an optimised build.
set(program $ENV{VIRELINE_TESTED_PROGRAM})
if(NOT program)
    message("SKIPPED: VIRELINE_TESTED_PROGRAM names no optimised build")
    return()
endif()
find_program(READELF readelf REQUIRED)

function(readelf result)
    execute_process(COMMAND ${READELF} --wide ${ARGN} ${program}
        OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

set(broken)
macro(demand what text pattern)
    if(NOT "${text}" MATCHES "${pattern}")
        list(APPEND broken "${what}")
    endif()
endmacro()
macro(forbid what text pattern)
    if("${text}" MATCHES "${pattern}")
        list(APPEND broken "${what}: ${CMAKE_MATCH_0}")
    endif()
endmacro()

readelf(header --file-header)
readelf(segments --program-headers)
readelf(dynamic --dynamic)
readelf(symbols --dyn-syms)

demand("a position-independent executable" "${header}${dynamic}" "Type: +DYN .*FLAGS_1[^\n]* PIE")
demand("relocations that become read-only" "${segments}" "GNU_RELRO")
demand("relocations bound at start" "${dynamic}" "FLAGS_1[^\n]* NOW")
demand("a stack that is not executable" "${segments}" "GNU_STACK[^\n]* RW ")
forbid("memory writable and executable" "${segments}" "LOAD[^\n]* RWE ")
forbid("a search path for libraries" "${dynamic}" "\\((RPATH|RUNPATH)\\)")
demand("protected stacks" "${symbols}" " __stack_chk_fail")
demand("fortified calls" "${symbols}" " __[a-z]+_chk@")

# Programs are started by GIO alone, from lists of arguments.
set(starters system popen wordexp fork vfork execl execle execlp execv execve execvp execvpe
    execveat fexecve posix_spawn posix_spawnp g_spawn_command_line_async g_spawn_command_line_sync
    g_app_info_create_from_commandline)
string(REPLACE ";" "|" starters "${starters}")
forbid("a call that starts programs by itself" "${symbols}" "UND (${starters})[@ \n]")

if(broken)
    list(JOIN broken "\n  " broken)
    message(FATAL_ERROR "${program} breaks its promises:\n  ${broken}")
endif()
