vt_add_bench(NAME bench_vtb DEPS vt_formats SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_vtb.cpp)
