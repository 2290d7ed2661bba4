// tests/dict/exercise.h - everything that may be done to a store, done to one
// that may hold anything.
#pragma once

#include "dict/dictionary.h"

#include <random>

// Walks, seeks, searches and verifies. Nothing is expected of the words but
// that they end.
void exercisereaders(const Dictionary &dict);

// Adds and removes words of the store and others, steps of them, and demands
// after each that the store would still pass the check of a load.
void exerciseedits(Dictionary *dict, std::mt19937 *random, int steps);
