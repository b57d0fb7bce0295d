# One library target per folder of src/. Each target publishes only its own
# include/ folder, so a layer sees the headers of the layers it links and no
# others: an include across the table fails to compile.

set(VT_WARNINGS -Wall -Wextra -Wpedantic -Wshadow)

function(vt_apply_common target)
  target_compile_options(${target} PRIVATE ${VT_WARNINGS})
  if(VT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(VT_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# vt_add_layer(NAME <target> SOURCES ... [DEPS ...] [QT])
function(vt_add_layer)
  cmake_parse_arguments(L "" "NAME" "SOURCES;DEPS" ${ARGN})
  add_library(${L_NAME} STATIC ${L_SOURCES})
  target_include_directories(${L_NAME} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/include
                                      PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/src)
  if(L_DEPS)
    target_link_libraries(${L_NAME} PUBLIC ${L_DEPS})
  endif()
  vt_apply_common(${L_NAME})
endfunction()

# vt_add_test(NAME <binary> SOURCES ... DEPS ...)
function(vt_add_test)
  cmake_parse_arguments(T "" "NAME" "SOURCES;DEPS;ENV" ${ARGN})
  add_executable(${T_NAME} ${T_SOURCES})
  if(VT_SANITIZE)
    target_sources(${T_NAME} PRIVATE ${CMAKE_SOURCE_DIR}/tests/lsan_suppressions.cpp)
  endif()
  add_dependencies(${T_NAME} vt_data)
  target_link_libraries(${T_NAME} PRIVATE ${T_DEPS} GTest::gtest GTest::gtest_main)
  target_compile_definitions(${T_NAME} PRIVATE VT_TEST_DATA_DIR="${CMAKE_SOURCE_DIR}/tests/data")
  vt_apply_common(${T_NAME})
  gtest_discover_tests(${T_NAME} DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT "${T_ENV}")
endfunction()
