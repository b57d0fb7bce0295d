vt_add_fuzz(NAME fuzz_ascii DEPS vt_formats SOURCES ${CMAKE_CURRENT_LIST_DIR}/fuzz_ascii.cpp)
