vt_add_bench(NAME bench_render DEPS vt_render_qt SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_render.cpp)
