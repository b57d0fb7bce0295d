vt_add_bench(NAME bench_make_limit DEPS vt_formats SOURCES ${CMAKE_CURRENT_LIST_DIR}/make_limit_piece.cpp)
vt_add_bench(NAME bench_limits DEPS vt_formats vt_player SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_limits.cpp)
