# The VST 3 SDK for Windows: built here with our own compiler from lists of what is used, since the SDK's own project
# does not cross-build. Some 40 seconds, less from ccache. Included by vst3_sdk.cmake and offers the same targets, but for
# the window toolkit.
#
# Left out: dataexchange.cpp, which wants std::aligned_alloc, and systemtime.cpp, which wants <Windows.h> by that case.

set(_public "${VST3_SDK_DIR}/public.sdk/source")

add_library(vst3sdk_headers INTERFACE)
target_include_directories(vst3sdk_headers SYSTEM INTERFACE "${VST3_SDK_DIR}")
target_compile_definitions(vst3sdk_headers INTERFACE RELEASE=1)

# vst3sdk_target(NAME): for what is the SDK's own: its warnings are not ours, and it takes the compiler's extensions.
function(vst3sdk_target name)
    target_compile_options(${name} PRIVATE -w)
    set_target_properties(${name} PROPERTIES CXX_EXTENSIONS ON)
    target_link_libraries(${name} PUBLIC vst3sdk_headers)
endfunction()

set(_base baseiids fbuffer fdebug fdynlib fobject fstreamer fstring timer updatehandler)
list(TRANSFORM _base PREPEND "${VST3_SDK_DIR}/base/source/")
set(_threads fcondition flock)
list(TRANSFORM _threads PREPEND "${VST3_SDK_DIR}/base/thread/source/")
set(_interfaces conststringtable coreiids funknown ustring)
list(TRANSFORM _interfaces PREPEND "${VST3_SDK_DIR}/pluginterfaces/base/")
set(_common common/commoniids common/openurl common/readfile common/systemclipboard_win32 common/threadchecker_win32
    vst/vstpresetfile vst/vstinitiids vst/utility/stringconvert)
list(TRANSFORM _common PREPEND "${_public}/")
set(_all ${_base} ${_threads} ${_interfaces} ${_common})
list(TRANSFORM _all APPEND ".cpp")
add_library(vst3sdk_common STATIC ${_all})
vst3sdk_target(vst3sdk_common)
target_link_libraries(vst3sdk_common PUBLIC ole32 shell32 uuid)

set(_plugin common/pluginview main/pluginfactory main/moduleinit vst/utility/testing vst/utility/vst2persistence
    vst/vstaudioeffect vst/vstbus vst/vstcomponent vst/vstcomponentbase vst/vsteditcontroller vst/vstnoteexpressiontypes
    vst/vstparameters vst/vstrepresentation)
list(TRANSFORM _plugin PREPEND "${_public}/")
list(TRANSFORM _plugin APPEND ".cpp")
add_library(vst3sdk_sdk STATIC ${_plugin})
vst3sdk_target(vst3sdk_sdk)
target_link_libraries(vst3sdk_sdk PUBLIC vst3sdk_common)

set(_hosting connectionproxy eventlist hostclasses module parameterchanges pluginterfacesupport plugprovider processdata)
list(TRANSFORM _hosting PREPEND "${_public}/vst/hosting/")
list(TRANSFORM _hosting APPEND ".cpp")
add_library(vst3sdk_hosting STATIC ${_hosting})
vst3sdk_target(vst3sdk_hosting)
target_link_libraries(vst3sdk_hosting PUBLIC vst3sdk_common)

# The module's entry, for a module's own sources and for programs that link a plug-in's parts without being one.
set(VST3_ENTRY_SOURCE "${_public}/main/dllmain.cpp")
set(VST3_MODULE_LOADER "${_public}/vst/hosting/module_win32.cpp")
add_library(vst3sdk_entry STATIC "${VST3_ENTRY_SOURCE}")
vst3sdk_target(vst3sdk_entry)

add_library(vst3sdk_plugin INTERFACE)
target_link_libraries(vst3sdk_plugin INTERFACE vst3sdk_sdk vst3sdk_entry Threads::Threads)
add_library(vst3sdk::plugin ALIAS vst3sdk_plugin)
add_library(vst3sdk_host INTERFACE)
target_link_libraries(vst3sdk_host INTERFACE vst3sdk_hosting Threads::Threads)
add_library(vst3sdk::hosting ALIAS vst3sdk_host)

# vst3sdk_program(NAME source...): one of the SDK's own programs, which begin at wmain or wWinMain.
function(vst3sdk_program name)
    add_executable(${name} ${ARGN} "${VST3_MODULE_LOADER}")
    vst3sdk_target(${name})
    target_link_options(${name} PRIVATE -municode)
    target_link_libraries(${name} PRIVATE vst3sdk_hosting gdi32)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/sdk")
endfunction()

set(_hosts "${VST3_SDK_DIR}/public.sdk/samples/vst-hosting")
file(GLOB _suite "${_public}/vst/testsuite/*.cpp" "${_public}/vst/testsuite/*/*.cpp" "${_public}/vst/hosting/test/*.cpp"
    "${_hosts}/validator/source/*.cpp")
vst3sdk_program(validator ${_suite} "${_public}/common/memorystream.cpp" "${_public}/main/moduleinit.cpp"
    "${_public}/vst/utility/testing.cpp" "${_public}/vst/moduleinfo/moduleinfoparser.cpp")
vst3sdk_program(editorhost "${_hosts}/editorhost/source/editorhost.cpp" "${_hosts}/editorhost/source/usediids.cpp"
    "${_hosts}/editorhost/source/platform/win32/platform.cpp" "${_hosts}/editorhost/source/platform/win32/window.cpp")
vst3sdk_program(moduleinfotool "${VST3_SDK_DIR}/public.sdk/samples/vst-utilities/moduleinfotool/source/main.cpp"
    "${_public}/vst/moduleinfo/moduleinfocreator.cpp" "${_public}/vst/moduleinfo/moduleinfoparser.cpp")

set(VST3_VALIDATOR validator)
set(VST3_MODULEINFOTOOL moduleinfotool)
set(VST3_EDITORHOST "$<TARGET_FILE:editorhost>")
