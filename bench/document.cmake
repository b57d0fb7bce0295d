vt_add_bench(NAME bench_document DEPS vt_document SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_document.cpp)
