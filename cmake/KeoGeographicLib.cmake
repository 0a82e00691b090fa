# GeographicLib, the independent geodesy reference of the tests and benchmarks (never linked into
# the kit's libraries). Gives the imported target keo::GeographicLib.
if(TARGET keo::GeographicLib)
    return()
endif()
find_path(KEO_GEOGRAPHICLIB_INCLUDE_DIR GeographicLib/Geodesic.hpp REQUIRED)
find_library(KEO_GEOGRAPHICLIB_LIBRARY GeographicLib REQUIRED)
add_library(keo::GeographicLib UNKNOWN IMPORTED)
set_target_properties(keo::GeographicLib PROPERTIES
    IMPORTED_LOCATION "${KEO_GEOGRAPHICLIB_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${KEO_GEOGRAPHICLIB_INCLUDE_DIR}")
