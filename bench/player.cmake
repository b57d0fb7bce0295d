# The player: its real-time clock against ideal times (a plain program that
# plays for about four minutes), and the WAV export.
vt_add_bench(NAME bench_player_timing DEPS vt_player vt_sound SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_player_timing.cpp)
vt_add_bench(NAME bench_player_wav DEPS vt_player vt_sound SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_player_wav.cpp)
