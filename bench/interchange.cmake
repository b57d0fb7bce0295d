vt_add_bench(NAME bench_interchange DEPS vt_formats SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_interchange.cpp)
