# Finds the language Lua 5.4, which CMake's own search mixes up with its other versions: Lua54::Lua54.
find_path(Lua54_INCLUDE_DIR lua.hpp PATH_SUFFIXES lua5.4 lua54 lua-5.4)
find_library(Lua54_LIBRARY NAMES lua5.4 lua54 lua-5.4)
mark_as_advanced(Lua54_INCLUDE_DIR Lua54_LIBRARY)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Lua54 REQUIRED_VARS Lua54_LIBRARY Lua54_INCLUDE_DIR)
if(Lua54_FOUND AND NOT TARGET Lua54::Lua54)
  add_library(Lua54::Lua54 UNKNOWN IMPORTED)
  set_target_properties(Lua54::Lua54 PROPERTIES
    IMPORTED_LOCATION "${Lua54_LIBRARY}" INTERFACE_INCLUDE_DIRECTORIES "${Lua54_INCLUDE_DIR}"
    INTERFACE_LINK_LIBRARIES "m;${CMAKE_DL_LIBS}")
endif()
