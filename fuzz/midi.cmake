vt_add_fuzz(NAME fuzz_midi DEPS vt_formats SOURCES ${CMAKE_CURRENT_LIST_DIR}/fuzz_midi.cpp)
