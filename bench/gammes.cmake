# The scale file and the harmoniser: the matching over the whole file, and a
# click on the fretboard with the harmoniser open, from the press to the
# strip and the list on screen.
vt_add_bench(NAME bench_gammes DEPS vt_music SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_gammes.cpp)
target_compile_definitions(bench_gammes PRIVATE VT_BIN_DIR="${CMAKE_BINARY_DIR}/bin")
if(TARGET vt_tools)
  find_package(Qt6 REQUIRED COMPONENTS Widgets)
  vt_add_bench(NAME bench_harmony DEPS vt_tools Qt6::Widgets
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_harmony.cpp)
  target_compile_definitions(bench_harmony PRIVATE VT_BIN_DIR="${CMAKE_BINARY_DIR}/bin")
endif()
