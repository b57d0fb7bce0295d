# The chord search: every standard chord on the guitar, and one search on a
# seven-string instrument.
if(TARGET vt_music)
  vt_add_bench(NAME bench_chords DEPS vt_music SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_chords.cpp)
endif()
