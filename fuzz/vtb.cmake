vt_add_fuzz(NAME fuzz_vtb DEPS vt_formats SOURCES ${CMAKE_CURRENT_LIST_DIR}/fuzz_vtb.cpp)
