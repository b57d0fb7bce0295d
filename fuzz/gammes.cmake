vt_add_fuzz(NAME fuzz_gammes DEPS vt_music SOURCES ${CMAKE_CURRENT_LIST_DIR}/fuzz_gammes.cpp)
