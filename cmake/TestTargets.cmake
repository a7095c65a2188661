# How a folder of tests becomes an executable.

# Lets a test target include private headers; it links the static library, where every symbol is in reach.
function(use_private_headers target)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}
    ${PROJECT_SOURCE_DIR}/VEXTimeAnalysisModeler/VEXTimeAnalysisModelerServices.m/src)
  target_link_libraries(${target} PUBLIC VEXTimeAnalysisModelerServices)
endfunction()

# Adds the executable <folder>_tests of all sources in tests/<folder>; each test case is run by itself.
# The tests of the tool run against the shared libraries, as the tool does.
function(add_folder_test folder)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  if(folder STREQUAL "oracle")
    list(FILTER sources INCLUDE REGEX "Test\\.cpp$")
  endif()
  set(target ${folder}_tests)
  add_executable(${target} ${sources})
  add_dependencies(${target} test_locales)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${target} PRIVATE
    TEST_SOURCE_DIR="${PROJECT_SOURCE_DIR}/tests"
    CATALOGUE_FOLDER="${PROJECT_SOURCE_DIR}/catalogue"
    TEST_LOCALE_FOLDER="${TEST_LOCALE_FOLDER}"
    COMMA_LOCALE="de_DE.UTF-8"
    LATIN1_LOCALE="de_DE.ISO-8859-1")
  # Tables of test rows take long to optimise and gain nothing by it.
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
  target_link_libraries(${target} PRIVATE live_objects GTest::gmock GTest::gtest_main nlohmann_json::nlohmann_json)
  if(folder STREQUAL "tools")
    target_compile_definitions(${target} PRIVATE TIMEANALYSIS_PROGRAM="$<TARGET_FILE:timeanalysis>")
    target_link_libraries(${target} PRIVATE timeanalysis_cli)
    add_dependencies(${target} timeanalysis)
  else()
    use_private_headers(${target})
    target_link_libraries(${target} PRIVATE timeanalysis_oracle)
  endif()
  gtest_discover_tests(${target} TEST_PREFIX ${folder}. NO_PRETTY_VALUES DISCOVERY_TIMEOUT 120
    PROPERTIES ENVIRONMENT LOCPATH=${TEST_LOCALE_FOLDER} TIMEOUT 300)
endfunction()
