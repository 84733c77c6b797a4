# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Installs the library, moves it to where nobody said it would be, builds a program against it and
# runs that on a sample:
#     cmake -D BUILD=... -D SAMPLES=... -D GENERATOR=... -D COMPILER=... -D FLAGS=... -P THIS
cmake_minimum_required(VERSION 3.25)

set(work ${BUILD}/installed_library_test)
file(REMOVE_RECURSE ${work})
macro(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${ARGN}: ${status}\n${output}")
    endif()
endmacro()

run(${CMAKE_COMMAND} --install ${BUILD} --component development --prefix ${work}/installed)
file(RENAME ${work}/installed ${work}/moved)
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/installed_library -B ${work}/program -G ${GENERATOR}
    -D CMAKE_PREFIX_PATH=${work}/moved -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${work}/program)

run(${work}/program/count_picks ${SAMPLES}/seisimager/line.vs ${SAMPLES}/sgt/line.sgt
    ${work}/line.otte)
if(NOT output STREQUAL "10 shots, 240 picks\n")
    message(FATAL_ERROR "Printed: ${output}")
endif()
file(READ ${work}/line.otte otte)
if(NOT otte MATCHES "\n-5;27.5;57.5;87.5;120;-5;27.5;57.5;87.5;120;\n")
    message(FATAL_ERROR "Wrote: ${otte}")
endif()
