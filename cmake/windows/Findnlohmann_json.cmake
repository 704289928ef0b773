find_package(nlohmann_json CONFIG REQUIRED)
include(take_headers)
take_headers(nlohmann_json::nlohmann_json nlohmann)
