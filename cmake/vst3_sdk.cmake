# The VST 3 SDK: found where scripts/build-sdk has built it, outside the build folder, and offered as imported targets.
#
#   vst3sdk::plugin    what a plug-in links          vst3sdk::hosting   what a host links
#   vst3sdk::vstgui    what a plug-in's view links
#   VST3_VALIDATOR, VST3_MODULEINFOTOOL, VST3_EDITORHOST   the SDK's own programs

set(_cache "${CMAKE_SOURCE_DIR}/build/cache")
if(CMAKE_HOST_UNIX)
    execute_process(COMMAND "${CMAKE_SOURCE_DIR}/scripts/cache-dir" OUTPUT_VARIABLE _cache
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()
set(VST3_SDK_DIR "${_cache}/vst3sdk" CACHE PATH "Folder of the VST 3 SDK (with pluginterfaces, public.sdk, vstgui4)")
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    add_compile_options("-ffile-prefix-map=${VST3_SDK_DIR}/=vst3sdk/") # as house.cmake for our own folders
endif()

if(NOT EXISTS "${VST3_SDK_DIR}/pluginterfaces/vst/ivstaudioprocessor.h")
    message(FATAL_ERROR "No VST 3 SDK in ${VST3_SDK_DIR}. Either run scripts/fetch-sdk \"${VST3_SDK_DIR}\" "
        "(Debian: from its source archive), or build with -DVST3_SDK_DIR=<the folder of an SDK that you have>.")
endif()

if(WIN32)
    include(vst3_sdk_windows)
    return()
endif()

# Asked for at every configuring: a tree follows when the SDK's options, its own compiler, flags or sanitizer change.
set(_variant)
if(TESSALY_SANITIZE MATCHES "thread")
    set(_variant --thread)
endif()
set(VST3_SDK_BUILD_DIR "" CACHE PATH "What scripts/build-sdk --into has built; empty: its folder in the cache")
if(NOT VST3_SDK_BUILD_DIR)
    execute_process(COMMAND ${CMAKE_COMMAND} -E env "CXX=${CMAKE_CXX_COMPILER}" "CXXFLAGS=${CMAKE_CXX_FLAGS}"
        "${CMAKE_SOURCE_DIR}/scripts/build-sdk" --where ${_variant} "${VST3_SDK_DIR}"
        OUTPUT_VARIABLE VST3_SDK_BUILD_DIR OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()

set(_archives sdk sdk_common base pluginterfaces sdk_hosting vstgui)
set(VST3_VALIDATOR "${VST3_SDK_BUILD_DIR}/bin/Release/validator")
set(VST3_EDITORHOST "${VST3_SDK_BUILD_DIR}/bin/Release/editorhost")
set(VST3_MODULEINFOTOOL "${VST3_SDK_BUILD_DIR}/bin/Release/moduleinfotool")

# Every part is asked for: an older build in the cache may lack one.
set(_parts "${VST3_MODULEINFOTOOL}")
if(TESSALY_TESTS)
    list(APPEND _parts "${VST3_VALIDATOR}" "${VST3_EDITORHOST}")
else()
    list(APPEND _variant --no-tests)
endif()
foreach(_archive IN LISTS _archives)
    list(APPEND _parts "${VST3_SDK_BUILD_DIR}/lib/Release/lib${_archive}.a")
endforeach()
foreach(_part IN LISTS _parts)
    if(NOT EXISTS "${_part}")
        list(JOIN _variant " " _variant)
        message(FATAL_ERROR "The VST 3 SDK in ${VST3_SDK_DIR} is not built yet for this configuration (${_part} is "
            "missing). Run once (some two minutes): CXX='${CMAKE_CXX_COMPILER}' CXXFLAGS='${CMAKE_CXX_FLAGS}' "
            "scripts/build-sdk ${_variant} '${VST3_SDK_DIR}'")
    endif()
endforeach()

foreach(_archive IN LISTS _archives)
    add_library(vst3sdk_${_archive} STATIC IMPORTED)
    set_target_properties(vst3sdk_${_archive} PROPERTIES
        IMPORTED_LOCATION "${VST3_SDK_BUILD_DIR}/lib/Release/lib${_archive}.a")
endforeach()

set_target_properties(vst3sdk_base PROPERTIES INTERFACE_LINK_LIBRARIES vst3sdk_pluginterfaces)
set_target_properties(vst3sdk_sdk_common PROPERTIES INTERFACE_LINK_LIBRARIES vst3sdk_base)
set_target_properties(vst3sdk_sdk vst3sdk_sdk_hosting PROPERTIES INTERFACE_LINK_LIBRARIES vst3sdk_sdk_common)

# RELEASE also in debug builds: with DEVELOPMENT the SDK traps into a debugger, which kills a host.
add_library(vst3sdk_headers INTERFACE)
target_include_directories(vst3sdk_headers SYSTEM INTERFACE "${VST3_SDK_DIR}")
target_compile_definitions(vst3sdk_headers INTERFACE RELEASE=1)

# The module's entry, for programs that link a plug-in's parts without being a module: the SDK's start-up refers to it.
set(VST3_ENTRY_SOURCE "${VST3_SDK_DIR}/public.sdk/source/main/linuxmain.cpp")
set(VST3_MODULE_LOADER "${VST3_SDK_DIR}/public.sdk/source/vst/hosting/module_linux.cpp")
add_library(vst3sdk_entry STATIC "${VST3_ENTRY_SOURCE}")
target_link_libraries(vst3sdk_entry PRIVATE vst3sdk_headers)

add_library(vst3sdk_plugin INTERFACE)
target_link_libraries(vst3sdk_plugin INTERFACE vst3sdk_headers vst3sdk_sdk vst3sdk_entry Threads::Threads)
add_library(vst3sdk::plugin ALIAS vst3sdk_plugin)

add_library(vst3sdk_host INTERFACE)
target_link_libraries(vst3sdk_host INTERFACE vst3sdk_headers vst3sdk_sdk_hosting Threads::Threads ${CMAKE_DL_LIBS})
add_library(vst3sdk::hosting ALIAS vst3sdk_host)

# The window toolkit, and the SDK's view on it. The definitions are those that the archive was built with: the headers'
# classes have other members without them.
find_package(PkgConfig REQUIRED)
pkg_check_modules(VSTGUI_SYSTEM REQUIRED IMPORTED_TARGET x11 xcb xcb-util xcb-cursor xcb-keysyms xcb-xkb xkbcommon
    xkbcommon-x11 glib-2.0 cairo pangocairo pangoft2 fontconfig freetype2)
add_library(vst3sdk_editor STATIC "${VST3_SDK_DIR}/public.sdk/source/vst/vstguieditor.cpp")
target_include_directories(vst3sdk_editor SYSTEM PUBLIC "${VST3_SDK_DIR}/vstgui4")
target_compile_definitions(vst3sdk_editor PUBLIC VSTGUI_ENABLE_DEPRECATED_METHODS=1 VSTGUI_OPENGL_SUPPORT=1)
target_link_libraries(vst3sdk_editor PUBLIC vst3sdk_plugin vst3sdk_vstgui PkgConfig::VSTGUI_SYSTEM ${CMAKE_DL_LIBS})
add_library(vst3sdk::vstgui ALIAS vst3sdk_editor)
