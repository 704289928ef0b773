# What every target of this project shares, and the one way to declare a library of src/.

set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)

# Warnings are errors in our code only; the SDK's headers come in as system headers.
# Contraction stays off: a fused multiply-add rounds once where the formulas round twice, and ten cells of the built-in
# morph table would come out a step higher.
# g++ 12 sees overlaps in its own std::string (its bug 105329), so that one warning is off there.
add_library(house_flags INTERFACE)
target_compile_options(house_flags INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wsign-conversion;-Wshadow;-Werror;-ffp-contract=off>
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<CXX_COMPILER_ID:MSVC>:/W4;/WX;/fp:precise;/utf-8>)
if(TESSALY_SANITIZE)
    # No vptr check: the SDK's windowed host tears the plug-in down from exit, after the SDK's own statics.
    target_compile_options(house_flags INTERFACE -fsanitize=${TESSALY_SANITIZE} -fno-sanitize-recover=all
        -fno-sanitize=vptr -fno-omit-frame-pointer)
    target_link_options(house_flags INTERFACE -fsanitize=${TESSALY_SANITIZE})
    # The SDK's programs are not instrumented: to load our module they need the sanitizer's library first.
    if(TESSALY_SANITIZE MATCHES "thread")
        set(_runtime libtsan.so)
    else()
        set(_runtime libasan.so)
    endif()
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${_runtime} OUTPUT_VARIABLE _runtime
        OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(TESSALY_LOADER_ENVIRONMENT "LD_PRELOAD=${_runtime};ASAN_OPTIONS=detect_leaks=0")
endif()

# A release knows nothing of the folders that it was built in: two builds anywhere are the same bytes (vst3_sdk.cmake
# adds the SDK's). Hardened as distributions do it; where their own flags name _FORTIFY_SOURCE, theirs holds.
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    add_compile_options("-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=" "-ffile-prefix-map=${CMAKE_BINARY_DIR}/=build/")
    if(TESSALY_HARDENING AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
        if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
            add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
        endif()
        add_compile_options(-fstack-protector-strong)
        add_link_options(-Wl,-z,relro -Wl,-z,now)
    endif()
endif()

# house_library(NAME LINKS target...)
# A library of all sources in this folder. Its folder is its only public include path, so a file can include just the
# folders that its link line names: an include in the wrong direction does not build. The target
# all_verify_interface_header_sets compiles every header alone.
function(house_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS")
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
    file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
    add_library(${name} STATIC ${sources})
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS "${CMAKE_CURRENT_SOURCE_DIR}" FILES ${headers})
    target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
    set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
    target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE house_flags)
endfunction()

# Link-time optimization, of the module alone and in it of the libraries named: see optimize_at_link. The archives hold
# ordinary code as well, which all programs link; without -fno-lto each of them would be optimized at its link, too.
set(TESSALY_LTO OFF)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CMAKE_CROSSCOMPILING
    AND NOT TESSALY_SANITIZE)
    set(TESSALY_LTO ON)
    add_link_options($<$<NOT:$<STREQUAL:$<TARGET_PROPERTY:TYPE>,MODULE_LIBRARY>>:-fno-lto>)
endif()

# optimize_at_link(MODULE library...)
# Calls between these libraries are inlined where MODULE is linked. Release builds with g++ only.
function(optimize_at_link module)
    if(TESSALY_LTO)
        foreach(library IN LISTS ARGN)
            target_compile_options(${library} PRIVATE -flto -ffat-lto-objects)
        endforeach()
        target_link_options(${module} PRIVATE -flto=auto)
    endif()
endfunction()
