find_package(doctest CONFIG REQUIRED)
include(take_headers)
take_headers(doctest::doctest doctest)
