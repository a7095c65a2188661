// What a formula may use up. Whatever goes beyond is an invalid expression or a failed run.
#pragma once

#include <chrono>
#include <cstddef>

namespace korcke {

/// Length of a signature and of a body, in bytes.
inline constexpr std::size_t LongestSignature = 32768;
inline constexpr std::size_t LongestBody = 32768;

/// Arguments of a signature.
inline constexpr std::size_t MostArguments = 200;

/// Instructions of the language's machine in one run; a turn of a loop takes a few.
inline constexpr int MostInstructions = 1'000'000;

/// Memory that one run uses at a time.
inline constexpr std::size_t MostBytesOfRun = std::size_t{4} << 20;

/// Memory that one run has in one piece (a list of 32,768 values takes as much), and in one text. The machine works on
/// a piece as a whole where nobody can stop it, so these bound how far a run goes beyond its time.
inline constexpr std::size_t LargestPiece = std::size_t{512} << 10;
inline constexpr std::size_t LongestText = std::size_t{64} << 10;

/// Memory that the compilation of one body uses at a time.
inline constexpr std::size_t MostBytesOfCompilation = std::size_t{16} << 20;

/// Processor time of the thread in one run.
inline constexpr std::chrono::milliseconds LongestRun{500};

/// Formulas that a thread keeps compiled, and the memory that they take together. Where the next one would go beyond,
/// all are forgotten.
inline constexpr std::size_t MostFormulas = 1024;
inline constexpr std::size_t MostBytesOfFormulas = std::size_t{16} << 20;

}  // namespace korcke
