# take_headers(TARGET FOLDER): a library of headers alone is the same on every system, but its folder's neighbours in
# /usr/include are not. Gives TARGET the one folder, without them.
function(take_headers target folder)
    get_target_property(above ${target} INTERFACE_INCLUDE_DIRECTORIES)
    list(GET above 0 above)
    set(alone "${CMAKE_BINARY_DIR}/headers/${folder}")
    if(above STREQUAL alone)
        return()
    endif()
    file(MAKE_DIRECTORY "${alone}")
    file(CREATE_LINK "${above}/${folder}" "${alone}/${folder}" SYMBOLIC)
    set_target_properties(${target} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${alone}")
endfunction()
