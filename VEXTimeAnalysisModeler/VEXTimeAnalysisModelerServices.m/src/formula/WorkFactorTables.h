// The constants of the Work-Factor functions.
#pragma once

#include <array>
#include <cstddef>

namespace formula {

// clang-format off

// The pair tables of the assembly function, flat: the index is row * 6 + column.
inline constexpr std::size_t PairColumns = 6;
inline constexpr std::array FirstPairBase{
    2.0, 3.0,  7.0, 2.0, 3.0,  7.0,  // row 0
    3.0, 4.0,  8.0, 5.0, 6.0, 10.0,  // row 1
    6.0, 6.0, 10.0, 9.0, 9.0, 13.0,  // row 2
};
inline constexpr std::array FirstPairWork{
    0.0, 1.0, 1.0, 0.0, 1.0, 1.0,  // row 0
    1.0, 2.0, 2.0, 3.0, 4.0, 4.0,  // row 1
    4.0, 4.0, 4.0, 7.0, 7.0, 7.0,  // row 2
};
inline constexpr std::array SecondPairBase{
    3.0, 0.0, 0.0,  3.0, 0.0, 0.0,  // row 0
    5.0, 0.0, 0.0,  6.0, 0.0, 0.0,  // row 1
    8.0, 0.0, 0.0, 12.0, 0.0, 0.0,  // row 2
};
inline constexpr std::array SecondPairWork{
    0.0, 0.0, 0.0, 0.0, 0.0, 0.0,  // row 0
    2.0, 0.0, 0.0, 3.0, 0.0, 0.0,  // row 1
    5.0, 0.0, 0.0, 9.0, 0.0, 0.0,  // row 2
};
static_assert(FirstPairBase.size() == 3 * PairColumns && FirstPairWork.size() == 3 * PairColumns &&
              SecondPairBase.size() == 3 * PairColumns && SecondPairWork.size() == 3 * PairColumns);

// The factor tables of the assembly function; their indexes count from 1.
//                                  1    2    3    4    5    6    7
inline constexpr std::array FactorA{0.0, 0.0, 0.1, 0.2, 0.3, 0.5, 0.7};
inline constexpr std::array FactorB{0.0, 0.2, 0.3, 0.5, 0.7, 2.0, 2.0};  // on work
inline constexpr std::array FactorC{0.0, 0.0, 0.0, 0.0, 0.0, 1.0, 1.0};  // on base
inline constexpr std::array Addend {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 5.0};
inline constexpr std::array FactorD{0.0, 0.2, 0.3, 0.5, 0.7, 1.5, 0.0};
inline constexpr std::array FactorE{0.3, 0.5, 0.7, 1.5, 2.5, 5.0, 0.0};
inline constexpr std::array FactorT{0.3, 0.5, 0.7, 1.0, 0.0};
static_assert(FactorA.size() == 7 && FactorB.size() == 7 && FactorC.size() == 7 && Addend.size() == 7 &&
              FactorD.size() == 7 && FactorE.size() == 7 && FactorT.size() == 5);

// The preposition table, flat: the index is row * 5 + column.
inline constexpr std::size_t PrepositionColumns = 5;
inline constexpr std::array PrepositionTimes{
    1.0, 1.0, 2.0, 2.0, 2.0,  // row 0
    2.0, 3.0, 3.0, 4.0, 4.0,  // row 1
    3.0, 4.0, 5.0, 5.0, 6.0,  // row 2
    4.0, 5.0, 6.0, 7.0, 8.0,  // row 3
};
static_assert(PrepositionTimes.size() == 4 * PrepositionColumns);

// The transport table, flat: the index is row * 11 + column.
inline constexpr std::size_t TransportColumns = 11;
inline constexpr std::array TransportTimes{
    2.0,  3.0,  4.0,  5.0,  6.0,  7.0,  8.0,  9.0, 10.0, 11.0, 12.0,  // row 0
    4.0,  5.0,  6.0,  7.0,  8.0,  9.0, 10.0, 11.0, 12.0, 13.0, 14.0,  // row 1
    5.0,  7.0,  9.0, 11.0, 13.0, 15.0, 17.0, 19.0, 21.0, 23.0, 25.0,  // row 2
    7.0,  9.0, 11.0, 13.0, 15.0, 17.0, 19.0, 21.0, 23.0, 25.0, 27.0,  // row 3
    9.0, 11.0, 13.0, 15.0, 17.0, 19.0, 21.0, 23.0, 25.0, 27.0, 29.0,  // row 4
};
static_assert(TransportTimes.size() == 5 * TransportColumns);

// clang-format on

}  // namespace formula
