vt_add_fuzz(NAME fuzz_wav DEPS vt_sound vt_music SOURCES ${CMAKE_CURRENT_LIST_DIR}/fuzz_wav.cpp)
