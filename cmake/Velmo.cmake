# How every floor, test executable and tool of the project is built: one place for flags and conventions.

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
add_compile_options(-fPIC)  # of libraries and programs alike, which so share their precompiled headers

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_DEPEND=1 CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
endif()
find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_link_options(-fuse-ld=mold)
endif()

add_library(velmo_options INTERFACE)
target_compile_options(velmo_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
                                               -Werror -fno-strict-overflow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 warns of these in its own string and vector headers when it inlines them.
  target_compile_options(
    velmo_options INTERFACE "$<$<CONFIG:Release>:-Wno-free-nonheap-object;-Wno-restrict;-Wno-array-bounds>"
                            "$<$<CONFIG:Release>:-Wno-stringop-overflow;-Wno-stringop-overread>")
endif()
target_compile_definitions(velmo_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER)
if(VELMO_SANITIZE)
  target_compile_options(velmo_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  target_link_options(velmo_options INTERFACE -fsanitize=address,undefined)
endif()

# Precompiled headers, each made once and shared by all targets of its kind.
# Not all of Qt: a header of 300 MB takes longer to load than most files to compile.
set(std_headers <algorithm> <array> <chrono> <functional> <map> <memory> <optional> <span> <string> <string_view>
                <unordered_map> <utility> <variant> <vector>)
set(qt_headers ${std_headers} <QAbstractItemModel> <QBoxLayout> <QGridLayout> <QLabel> <QLineEdit> <QPushButton>
               <QString> <QTimer> <QVariant> <QWidget>)
file(WRITE ${CMAKE_BINARY_DIR}/headers.cpp "")
function(velmo_headers name)
  cmake_parse_arguments(HDR "" "" "LIBRARIES;HEADERS" ${ARGN})
  add_library(velmo_${name} OBJECT ${CMAKE_BINARY_DIR}/headers.cpp)
  target_link_libraries(velmo_${name} PRIVATE velmo_options ${HDR_LIBRARIES})
  target_precompile_headers(velmo_${name} PRIVATE ${HDR_HEADERS})
endfunction()
velmo_headers(std_headers HEADERS ${std_headers})
velmo_headers(qt_headers LIBRARIES Qt6::Widgets HEADERS ${qt_headers})
if(VELMO_TESTS)
  velmo_headers(std_test_headers LIBRARIES GTest::gmock HEADERS ${std_headers} <gmock/gmock.h>)
  velmo_headers(qt_test_headers LIBRARIES Qt6::Widgets GTest::gmock HEADERS ${qt_headers} <gmock/gmock.h>)
endif()

# velmo_library(<folder> [WIDGETS] DEPENDS <targets...>): the static library velmo_<folder> from every .cpp of the
# current folder and of the rooms below it; what stands in tool/ is a program of its own.
function(velmo_library name)
  cmake_parse_arguments(LIB "WIDGETS" "" "DEPENDS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.h *.qrc)
  list(FILTER sources EXCLUDE REGEX "/tool/")
  if(NOT sources)
    add_library(velmo_${name} INTERFACE)
    target_link_libraries(velmo_${name} INTERFACE ${LIB_DEPENDS})
    return()
  endif()
  add_library(velmo_${name} STATIC ${sources})
  set_target_properties(velmo_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(velmo_${name} PUBLIC ${LIB_DEPENDS} PRIVATE velmo_options)
  # A floor is included by its folder's name: "text/format.h". The forwarding folder holds only that one name, so that
  # a target sees the floors it links and no others.
  set(view ${CMAKE_BINARY_DIR}/floors/${name})
  file(MAKE_DIRECTORY ${view})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${view}/${name} SYMBOLIC)
  target_include_directories(velmo_${name} PUBLIC ${view})
  if(LIB_WIDGETS)
    target_link_libraries(velmo_${name} PUBLIC Qt6::Widgets)
    target_precompile_headers(velmo_${name} REUSE_FROM velmo_qt_headers)
    set_target_properties(velmo_${name} PROPERTIES AUTOMOC ON AUTORCC ON)
  else()
    target_precompile_headers(velmo_${name} REUSE_FROM velmo_std_headers)
  endif()
endfunction()

# velmo_tests(<folder> [WIDGETS | DISPLAY] DEPENDS <targets...>): the executable <folder>_tests from
# tests/<folder>/ and the rooms below it, offscreen when it shows widgets. With DISPLAY it has a main function, which finds the tests a
# display, and each of them runs alone.
function(velmo_tests name)
  cmake_parse_arguments(TST "WIDGETS;DISPLAY" "" "DEPENDS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${name}/*.cpp ${name}/*.h)
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_tests ${sources})
  target_link_libraries(${name}_tests PRIVATE ${TST_DEPENDS} velmo_options GTest::gmock)
  target_include_directories(${name}_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  set(alone FALSE)
  if(TST_WIDGETS OR TST_DISPLAY)
    if(TST_DISPLAY)
      set(alone TRUE)
    else()
      target_sources(${name}_tests PRIVATE support/widgets_main.cpp)
    endif()
    target_link_libraries(${name}_tests PRIVATE Qt6::Widgets)
    target_precompile_headers(${name}_tests REUSE_FROM velmo_qt_test_headers)
    set_target_properties(${name}_tests PROPERTIES AUTOMOC ON)
  else()
    target_link_libraries(${name}_tests PRIVATE GTest::gtest_main)
    target_precompile_headers(${name}_tests REUSE_FROM velmo_std_test_headers)
  endif()
  include(GoogleTest)
  gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST
                       PROPERTIES TIMEOUT 600 RUN_SERIAL ${alone} ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
