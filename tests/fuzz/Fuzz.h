#pragma once

#include <QByteArray>

// A fuzz target is a source file that defines feed(). Under clang it becomes a program of libFuzzer's, which makes up inputs; under
// any compiler it becomes a test that feeds it the committed inputs and near relations of theirs (Replay.cpp).
namespace quillmere::fuzz {

// Takes any bytes at all, and ends the program with HOLDS() where something is not as it should be.
void feed(const QByteArray &input);

[[noreturn]] void reportBroken(const char *condition, const char *file, int line);

} // namespace quillmere::fuzz

// What is true of every input.
#define HOLDS(condition)                                                                                               \
    ((condition) ? static_cast<void>(0) : quillmere::fuzz::reportBroken(#condition, __FILE__, __LINE__))
