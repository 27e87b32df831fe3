# How this project builds: compiler settings, the libraries it stands on, and three helpers.
#
#   quillmere_library(name ...)   a static library of a subsystem, with its QML module where it has one
#   quillmere_test(name ...)      a test program that links what ships
#   quillmere_program(name ...)   a program

include(CTest)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Network DBus Qml Quick Concurrent)
if(BUILD_TESTING)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
endif()
find_package(QCoro6 0.8 REQUIRED COMPONENTS Core)
find_package(simdjson REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(LIBSECRET REQUIRED IMPORTED_TARGET libsecret-1)
# It asks for -pthread, a macro without meaning on today's systems; and g++ wants the same macros wherever headers are precompiled.
set_property(TARGET PkgConfig::LIBSECRET PROPERTY INTERFACE_COMPILE_OPTIONS)

qt_standard_project_setup()
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # clang has coroutines in C++20; QCoro's switch is that of its experimental ones from before.
    qcoro_enable_coroutines()
endif()
set(QT_QML_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml)

add_library(quillmere_settings INTERFACE)
target_compile_features(quillmere_settings INTERFACE cxx_std_20)
target_compile_options(quillmere_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Werror)
target_compile_definitions(quillmere_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
target_include_directories(quillmere_settings INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(QUILLMERE_SANITIZE)
    target_compile_options(quillmere_settings INTERFACE
        -fsanitize=${QUILLMERE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(quillmere_settings INTERFACE -fsanitize=${QUILLMERE_SANITIZE})
    if(QUILLMERE_SANITIZE STREQUAL "thread")
        # A fence in Qt's headers, which this sanitizer does not follow.
        target_compile_options(quillmere_settings INTERFACE -Wno-tsan)
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # clang 14 fails on coroutines with this one of the undefined-behaviour checks.
        target_compile_options(quillmere_settings INTERFACE -fno-sanitize=function)
    endif()
endif()

# A folder whose targets all read the same headers of libraries names the target that precompiles them in QUILLMERE_HEADERS.
function(quillmere_shares_headers name)
    if(QUILLMERE_HEADERS)
        target_precompile_headers(${name} REUSE_FROM ${QUILLMERE_HEADERS})
        # It holds next to nothing, for a test's own code is in its source file.
        set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp
            PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    endif()
endfunction()

# A subsystem. URI makes it a QML module too. LINK names what its users see as well, PRIVATE_LINK what only it uses.
# QML_FILES and headers may stand in folders; a QML file's folder plays no part in its type's name.
function(quillmere_library name)
    cmake_parse_arguments(arg "" "URI" "SOURCES;QML_FILES;QML_SINGLETONS;QML_IMPORTS;RESOURCES;LINK;PRIVATE_LINK" ${ARGN})

    qt_add_library(${name} STATIC)
    target_sources(${name} PRIVATE ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC quillmere_settings ${arg_LINK} PRIVATE ${arg_PRIVATE_LINK})
    quillmere_shares_headers(${name})

    # The code that registers QML types includes their headers by bare name.
    list(FILTER arg_SOURCES EXCLUDE REGEX "^/")
    foreach(source IN LISTS arg_SOURCES)
        get_filename_component(folder ${source} DIRECTORY)
        target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
    endforeach()

    if(NOT arg_URI)
        return()
    endif()
    foreach(file IN LISTS arg_QML_FILES arg_QML_SINGLETONS)
        get_filename_component(alias ${file} NAME)
        set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${alias})
    endforeach()
    set_source_files_properties(${arg_QML_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
    qt_add_qml_module(${name}
        URI ${arg_URI}
        VERSION 1.0
        RESOURCE_PREFIX /qt/qml
        DEPENDENCIES QtQuick ${arg_QML_IMPORTS}
        QML_FILES ${arg_QML_FILES} ${arg_QML_SINGLETONS}
        RESOURCES ${arg_RESOURCES})
    # Every QML file becomes a source file, which takes two thirds of its time to read this one header.
    target_precompile_headers(${name} PRIVATE <QtQml/qqmlprivate.h>)
    # Whoever links a module gets its plugin, without which the engine does not find its types.
    target_link_libraries(${name} INTERFACE ${name}plugin)
endfunction()

function(quillmere_program name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    qt_add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE quillmere_settings ${arg_LINK})
    quillmere_shares_headers(${name})
endfunction()

# A test program of one source file named after it, registered with CTest. WITH names what it needs around it: "display" (an X
# server with a window manager), "wayland" (a compositor), "keyring" (a session bus with a Secret Service), "small-disks" (a file
# system of one megabyte and one that is read-only). KNOWN_LEAKS: it comes by what tests/support/known-leaks names.
function(quillmere_test name)
    cmake_parse_arguments(arg "KNOWN_LEAKS" "TIMEOUT" "WITH;SOURCES;LINK;LABELS" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 300)
    endif()
    quillmere_program(${name} SOURCES ${name}.cpp ${arg_SOURCES} LINK Qt6::Test ${arg_LINK})
    set(around)
    foreach(need IN LISTS arg_WITH)
        list(APPEND around ${PROJECT_SOURCE_DIR}/tests/support/with-${need})
    endforeach()
    add_test(NAME ${name} COMMAND ${around} $<TARGET_FILE:${name}>)
    set(environment)
    if(NOT arg_WITH)
        list(APPEND environment
            QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent)
    endif()
    if(QUILLMERE_SANITIZE)
        math(EXPR arg_TIMEOUT "${arg_TIMEOUT} * 5")
        list(APPEND environment QTEST_FUNCTION_TIMEOUT=${arg_TIMEOUT}000)
        if(arg_KNOWN_LEAKS)
            # They are told by what stands deep in the stack, and Qt's libraries have no frame pointers: ten times as slow.
            list(APPEND environment ASAN_OPTIONS=fast_unwind_on_malloc=0)
        endif()
        list(APPEND environment LSAN_OPTIONS=print_suppressions=0:suppressions=${PROJECT_SOURCE_DIR}/tests/support/known-leaks
            # Qt is not instrumented: what it does to memory that two threads use is out of the sanitizer's sight.
            TSAN_OPTIONS=ignore_noninstrumented_modules=1:die_after_fork=0:allocator_may_return_null=1)
    endif()
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${arg_TIMEOUT} LABELS "${arg_LABELS}" ENVIRONMENT "${environment}")
endfunction()
