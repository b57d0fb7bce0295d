vt_add_fuzz(NAME fuzz_ini DEPS vt_formats SOURCES ${CMAKE_CURRENT_LIST_DIR}/fuzz_ini.cpp)
vt_add_fuzz(NAME fuzz_strings DEPS vt_formats SOURCES ${CMAKE_CURRENT_LIST_DIR}/fuzz_strings.cpp)
