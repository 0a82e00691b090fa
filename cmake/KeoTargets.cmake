# Shared compile settings for every target of the project.

# keo_apply_settings(<target>): warnings, warnings-as-errors and sanitizers.
function(keo_apply_settings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
        -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-qual
        -Wnull-dereference -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough)
    if(KEO_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    keo_apply_sanitizers(${target})
endfunction()

# keo_apply_sanitizers(<target>): the sanitizers of KEO_SANITIZE, halting on the first error, and
# with KEO_BUILD_FUZZERS the coverage that guides libFuzzer.
function(keo_apply_sanitizers target)
    if(KEO_BUILD_FUZZERS)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
    if(NOT KEO_SANITIZE)
        return()
    endif()
    list(JOIN KEO_SANITIZE "," sanitizers)
    target_compile_options(${target} PRIVATE
        -fsanitize=${sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(${target} PRIVATE -fsanitize=${sanitizers})
endfunction()

# keo_add_library(<name> SOURCES <src...>): one shared library of the kit, with its include root,
# export macro (defined by <name>_EXPORTS while the library itself is built) and alias keo::<name>.
function(keo_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC_DEPENDS" ${ARGN})
    add_library(${name} SHARED ${ARG_SOURCES})
    add_library(keo::${name} ALIAS ${name})
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/Core/include>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/keo>)
    # The kit's private header-only containers (FlatIdMap, BlockArray) live beside keoCommon's
    # sources and serve every library; they are never installed.
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/Core/src/Common)
    target_compile_features(${name} PUBLIC cxx_std_17)
    if(ARG_PUBLIC_DEPENDS)
        target_link_libraries(${name} PUBLIC ${ARG_PUBLIC_DEPENDS})
    endif()
    # Installed, each library finds the kit's other libraries beside it, so that a program that
    # links one (keoSource) loads the ones it needs (keoFeature) without naming them itself.
    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        EXPORT_NAME ${name}
        INSTALL_RPATH "$ORIGIN")
    keo_apply_settings(${name})
    set_property(GLOBAL APPEND PROPERTY KEO_LIBRARIES ${name})
endfunction()

# keo_add_test_suite(<name> SOURCES <src...> LIBRARIES <lib...>): one GoogleTest program whose
# tests are registered one by one with CTest.
function(keo_add_test_suite name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} GTest::gtest_main GTest::gmock)
    keo_apply_settings(${name})
    # Tests dereference what they have just asserted to be there; in optimised builds (the
    # ThreadSanitizer one) GCC cannot see through the assertions and flags every such use. A
    # null there fails the test anyway.
    target_compile_options(${name} PRIVATE -Wno-null-dereference)
    gtest_discover_tests(${name}
        WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
        DISCOVERY_TIMEOUT 120
        PROPERTIES TIMEOUT 600)
endfunction()
