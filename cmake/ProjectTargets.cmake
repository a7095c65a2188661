# How the project's libraries are made: compiled once, offered as a static and as a shared library.

# Adds the libraries <name> (static) and <name>_shared, both written as lib<name>.
#   SOURCES  the source files
#   INCLUDES include folders that users of the library get too, as build-tree paths
#   PRIVATE  include folders of the library's own
#   LIBRARIES libraries that the sources need and no header names
#   NEEDS    project libraries (by static name) that the headers name
function(add_project_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;INCLUDES;PRIVATE;LIBRARIES;NEEDS")
  list(TRANSFORM arg_INCLUDES REPLACE "(.+)" "$<BUILD_INTERFACE:\\1>" OUTPUT_VARIABLE build_includes)

  add_library(${name}_objects OBJECT ${arg_SOURCES})
  target_include_directories(${name}_objects PUBLIC ${arg_INCLUDES} PRIVATE ${arg_PRIVATE})
  target_link_libraries(${name}_objects PRIVATE ${arg_LIBRARIES})
  foreach(need IN LISTS arg_NEEDS)
    target_include_directories(${name}_objects
      PRIVATE $<TARGET_PROPERTY:${need},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()

  add_library(${name} STATIC $<TARGET_OBJECTS:${name}_objects>)
  add_library(${name}_shared SHARED $<TARGET_OBJECTS:${name}_objects>)
  foreach(kind IN ITEMS "" _shared)
    set_target_properties(${name}${kind} PROPERTIES OUTPUT_NAME ${name} LINKER_LANGUAGE CXX)
    target_include_directories(${name}${kind} PUBLIC ${build_includes}
      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/VEXTimeAnalysisModeler>)
    target_compile_features(${name}${kind} PUBLIC cxx_std_20)
    target_link_libraries(${name}${kind} PRIVATE ${arg_LIBRARIES})
    foreach(need IN LISTS arg_NEEDS)
      target_link_libraries(${name}${kind} PUBLIC ${need}${kind})
    endforeach()
  endforeach()
  set_target_properties(${name}_shared PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    INSTALL_RPATH $ORIGIN)
  target_link_options(${name}_shared PRIVATE
    $<$<NOT:$<BOOL:${TIMEANALYSIS_INSTRUMENTED}>>:-Wl,--no-undefined>)
endfunction()
