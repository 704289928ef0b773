# The VST 3 SDK: found where scripts/build-sdk has built it, outside the build folder, and offered as imported targets.
#
#   vst3sdk::plugin    what a plug-in links          vst3sdk::hosting   what a host links
#   vst3sdk::vstgui    what a plug-in's view links
#   VST3_VALIDATOR, VST3_MODULEINFOTOOL, VST3_EDITORHOST   the SDK's own programs

if(DEFINED ENV{XDG_CACHE_HOME} AND NOT "$ENV{XDG_CACHE_HOME}" STREQUAL "")
    set(_cache "$ENV{XDG_CACHE_HOME}/tessaly-bench")
elseif(DEFINED ENV{HOME})
    set(_cache "$ENV{HOME}/.cache/tessaly-bench")
else()
    message(FATAL_ERROR "Neither XDG_CACHE_HOME nor HOME is set. Where a build has no home, set XDG_CACHE_HOME to a folder "
        "of its own, for scripts/fetch-sdk, scripts/build-sdk and here: the SDK is built in it.")
endif()
set(VST3_SDK_DIR "${_cache}/vst3sdk" CACHE PATH "Folder of the VST 3 SDK (with pluginterfaces, public.sdk, vstgui4)")

if(NOT EXISTS "${VST3_SDK_DIR}/pluginterfaces/vst/ivstaudioprocessor.h")
    message(FATAL_ERROR "No VST 3 SDK in ${VST3_SDK_DIR}. Either run scripts/fetch-sdk \"${VST3_SDK_DIR}\" "
        "(Debian: from its source archive), or build with -DVST3_SDK_DIR=<the folder of an SDK that you have>.")
endif()

if(WIN32)
    include(vst3_sdk_windows)
    return()
endif()

file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/vst3_sdk_options.txt" _options)
set(_variant "")
if(TESSALY_SANITIZE MATCHES "thread")
    list(APPEND _options -DCMAKE_CXX_FLAGS=-fsanitize=thread)
    set(_variant "--thread ")
endif()

string(SHA1 _hash "${VST3_SDK_DIR};${_options}")
string(SUBSTRING "${_hash}" 0 8 _hash)
# Not kept in the build tree's cache: a tree follows when the options above, or its sanitizer, change.
set(VST3_SDK_BUILD_DIR "${_cache}/vst3sdk-build-${_hash}")

set(_archives sdk sdk_common base pluginterfaces sdk_hosting vstgui)
set(VST3_VALIDATOR "${VST3_SDK_BUILD_DIR}/bin/Release/validator")
set(VST3_EDITORHOST "${VST3_SDK_BUILD_DIR}/bin/Release/editorhost")
set(VST3_MODULEINFOTOOL "${VST3_SDK_BUILD_DIR}/bin/Release/moduleinfotool")

# Every archive is asked for: an older build in the cache may lack one.
foreach(_archive IN LISTS _archives)
    if(NOT EXISTS "${VST3_SDK_BUILD_DIR}/lib/Release/lib${_archive}.a")
        message(FATAL_ERROR "The VST 3 SDK in ${VST3_SDK_DIR} is not built yet for this configuration. "
            "Run scripts/build-sdk ${_variant}\"${VST3_SDK_DIR}\" once (some two minutes).")
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
