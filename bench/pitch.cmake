# The tuner's pitch detector on one frame.
vt_add_bench(NAME bench_pitch DEPS vt_music SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_pitch.cpp)
