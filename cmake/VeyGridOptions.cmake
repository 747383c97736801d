# Compiler settings that hold for every target, and the functions that declare the house's libraries.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Programs stand at build/PRESET/NAME, where other people's checks call them.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")

add_library(vey_options INTERFACE)
target_compile_options(vey_options INTERFACE -Wall -Wextra -Wconversion -Werror)
# GCC 12 sees overlapping copies in its own std::string where there are none (its bug 105651).
target_compile_options(vey_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_include_directories(vey_options INTERFACE "${CMAKE_SOURCE_DIR}")
# Arithmetic on row and column numbers given by hosts must wrap, not be undefined, wherever it is
# not already done in 64 bits; assertions of the library are cheap next to a corrupted sheet.
target_compile_definitions(vey_options INTERFACE _GLIBCXX_ASSERTIONS)

if(VEYGRID_SANITIZE)
    add_compile_options(-fsanitize=${VEYGRID_SANITIZE} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VEYGRID_SANITIZE})
endif()

if(WIN32)
    # One program file, no DLL beyond the system's own.
    add_link_options(-static -static-libgcc -static-libstdc++)
    add_compile_definitions(UNICODE _UNICODE _WIN32_WINNT=0x0601)
endif()

# vey_library(NAME [FOLDER DIR] [DEPENDS LIB...]) makes the library of one folder from its sources.
function(vey_library name)
    cmake_parse_arguments(ARG "" "FOLDER" "DEPENDS" ${ARGN})
    if(NOT ARG_FOLDER)
        set(ARG_FOLDER ${name})
    endif()
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/${ARG_FOLDER}/*.cpp")
    if(sources)
        set(kind STATIC)
        set(link PUBLIC)
    else()
        set(kind INTERFACE)
        set(link INTERFACE)
    endif()
    add_library(vey_${name} ${kind} ${sources})
    target_link_libraries(vey_${name} ${link} vey_options)
    foreach(dependency IN LISTS ARG_DEPENDS)
        target_link_libraries(vey_${name} ${link} vey_${dependency})
    endforeach()
endfunction()
