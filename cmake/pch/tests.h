// What nearly every test reads, compiled once.
#pragma once

#include <doctest/doctest.h>

#include "standard.h"
