find_package(CLI11 CONFIG REQUIRED)
include(take_headers)
take_headers(CLI11::CLI11 CLI)
