cmake_minimum_required(VERSION 3.25)
# Fails when a plug-in or core source includes anything outside its layer: plugin/ may include
# <maya/…>, core/, its own headers and the standard library; core/ may include core/, the standard
# library and TBB. Run as: cmake -DSOURCE_DIR=<repo> -P CheckLayerIncludes.cmake
set(standard_headers
    algorithm any array atomic bitset cassert cctype cerrno cfloat charconv chrono cinttypes climits
    cmath complex condition_variable cstdarg cstddef cstdint cstdio cstdlib cstring ctime deque
    exception execution filesystem fstream functional future initializer_list iomanip ios iosfwd
    iostream istream iterator limits list locale map memory memory_resource mutex new numeric
    optional ostream queue random ratio regex set shared_mutex sstream stack stdexcept streambuf
    string string_view system_error thread tuple type_traits typeindex typeinfo unordered_map
    unordered_set utility valarray variant vector)

set(failures "")
foreach(layer plugin core)
    file(GLOB_RECURSE sources "${SOURCE_DIR}/${layer}/*.h" "${SOURCE_DIR}/${layer}/*.cpp")
    foreach(source IN LISTS sources)
        file(STRINGS "${source}" lines REGEX "^[ \t]*#[ \t]*include")
        get_filename_component(here "${source}" DIRECTORY)
        foreach(line IN LISTS lines)
            string(REGEX MATCH "[<\"]([^>\"]+)[>\"]" _ "${line}")
            set(header "${CMAKE_MATCH_1}")
            set(ok FALSE)
            if(line MATCHES "<")
                if(header IN_LIST standard_headers)
                    set(ok TRUE)
                elseif(layer STREQUAL "plugin" AND header MATCHES "^maya/[A-Za-z0-9_]+\\.h$")
                    set(ok TRUE)
                elseif(layer STREQUAL "core" AND header MATCHES "^tbb/")
                    set(ok TRUE)
                endif()
            elseif(header MATCHES "^core/" AND EXISTS "${SOURCE_DIR}/${header}")
                set(ok TRUE)
            elseif(layer STREQUAL "plugin" AND NOT header MATCHES "/" AND EXISTS "${here}/${header}")
                set(ok TRUE)
            endif()
            if(NOT ok)
                file(RELATIVE_PATH name "${SOURCE_DIR}" "${source}")
                string(APPEND failures "  ${name}: ${line}\n")
            endif()
        endforeach()
    endforeach()
endforeach()

if(failures)
    message(FATAL_ERROR "Includes outside their layer:\n${failures}")
endif()
message(STATUS "plugin/ and core/ include only what their layers allow")
