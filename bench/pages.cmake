# Pages: the page count and the PDF of one track at three sizes, and the
# 4-track piece to PDF through vantoro-cli.
vt_add_bench(NAME bench_pages DEPS vt_render_qt vt_formats SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_pages.cpp)
add_dependencies(bench_pages vantoro-cli)
target_compile_definitions(bench_pages PRIVATE VT_CLI="$<TARGET_FILE:vantoro-cli>")
