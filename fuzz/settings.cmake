# The conversions are compiled in alone, with Qt's core: the rest of the
# window layer is not needed to read a value's text.
find_package(Qt6 REQUIRED COMPONENTS Core)
vt_add_fuzz(NAME fuzz_settings DEPS vt_document Qt6::Core
  SOURCES ${CMAKE_CURRENT_LIST_DIR}/fuzz_settings.cpp ${CMAKE_SOURCE_DIR}/src/shell/src/settings_convert.cpp)
target_include_directories(fuzz_settings PRIVATE ${CMAKE_SOURCE_DIR}/src/shell/src)
