# The tables of code page 936, made at configure time on the machine that builds from the mapping
# that ICU ships, so that every program for every system carries the same ones.
set(VEYGRID_GENERATED "${CMAKE_BINARY_DIR}/generated")
set(maker "${CMAKE_SOURCE_DIR}/tools/MakeCodePage936.cpp")
set(tables "${VEYGRID_GENERATED}/CodePage936Tables.inc")
find_program(VEYGRID_HOST_CXX NAMES g++ c++ clang++ REQUIRED NO_CMAKE_FIND_ROOT_PATH)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${maker}")

if(NOT EXISTS "${tables}" OR "${maker}" IS_NEWER_THAN "${tables}")
    file(MAKE_DIRECTORY "${VEYGRID_GENERATED}")
    set(program "${VEYGRID_GENERATED}/MakeCodePage936")
    execute_process(
        COMMAND "${VEYGRID_HOST_CXX}" -std=c++20 -O1 -o "${program}" "${maker}" -licuuc
        COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND "${program}" OUTPUT_FILE "${tables}.part" COMMAND_ERROR_IS_FATAL ANY)
    file(RENAME "${tables}.part" "${tables}")
endif()
target_include_directories(vey_options INTERFACE "${VEYGRID_GENERATED}")
