# Values that differ from shop to shop or from brand to brand. They serve only until the system-init record
# has arrived; KV_PANEL_API_URLS in the environment replaces the endpoints at run time.
set(KV_PANEL_API_URLS
    "https://api.kv-panel.example;https://api.kv-panel.example.net;https://api.kv-panel.example.org;https://api1.kv-panel.example;https://api2.kv-panel.example;https://api3.kv-panel.example"
    CACHE STRING "The six built-in endpoints, base URLs without a trailing slash")
set(KV_PANEL_MQTT_URL "api.kv-panel.example" CACHE STRING "Broker host before the system-init record has arrived")
set(KV_PANEL_MQTT_USER "terminal" CACHE STRING "Broker user before the system-init record has arrived")
set(KV_PANEL_MQTT_PASSWORD "terminal" CACHE STRING "Broker password before the system-init record has arrived")
set(KV_PANEL_VENDOR_TEXT "技术支持;线路检测与切换" CACHE STRING "Two lines of text for the vendor block, separated by a semicolon")

list(LENGTH KV_PANEL_API_URLS url_count)
if(NOT url_count EQUAL 6)
    message(FATAL_ERROR "KV_PANEL_API_URLS needs six base URLs, got ${url_count}")
endif()
list(JOIN KV_PANEL_API_URLS "," KV_PANEL_API_URLS_TEXT)
list(JOIN KV_PANEL_VENDOR_TEXT ";" KV_PANEL_VENDOR_TEXT_LINES)
configure_file(${CMAKE_CURRENT_LIST_DIR}/DeploymentValues.h.in ${CMAKE_BINARY_DIR}/generated/DeploymentValues.h @ONLY)
