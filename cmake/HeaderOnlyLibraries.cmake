# The header-only libraries of the programs. A cross compiler must not see the build machine's
# whole include folder, so it gets links to these few.
set(libraries CLI nlohmann boost)
set(folder "${CMAKE_BINARY_DIR}/header-only")
file(MAKE_DIRECTORY "${folder}")
foreach(library IN LISTS libraries)
    if(NOT EXISTS "/usr/include/${library}")
        message(FATAL_ERROR "header library ${library} is missing; ./test installs it")
    endif()
    file(CREATE_LINK "/usr/include/${library}" "${folder}/${library}" SYMBOLIC)
endforeach()
add_library(vey_header_only INTERFACE)
target_include_directories(vey_header_only SYSTEM INTERFACE "${folder}")
