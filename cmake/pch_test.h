// What every test file includes, compiled once per test binary.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>
