#pragma once
// One table of rounding cases for the three places that round: C++, the file store and the server store.

#include <vector>

struct CasoDeRedondeo {
    double valor;
    int decimales;
    double esperado;
};

/// Worked out by hand: the value written with 15 significant digits, then halves away from zero.
inline const std::vector<CasoDeRedondeo> &CasosDeRedondeo() {
    static const std::vector<CasoDeRedondeo> casos{
        {0, 2, 0},
        {1.005, 2, 1.01},              // binary 1.00499999999999989…; its 15 digits say 1.00500000000000
        {-1.005, 2, -1.01},            // away from zero on both sides
        {2.675, 2, 2.68},              // binary 2.67499999999999982…
        {1.115, 2, 1.12},              // binary 1.11499999999999999…
        {0.285, 2, 0.29},              // binary 0.28499999999999998…
        {1.0049999999999, 2, 1},       // 14 digits, below the half
        {1.00499999999999, 2, 1},      // 15 digits, below the half
        {1.004999999999999, 2, 1.01},  // 16 digits: the fifteenth rounds up to 1.00500000000000
        {0.5, 0, 1},
        {1.5, 0, 2},
        {2.5, 0, 3},  // no banker's rounding
        {-2.5, 0, -3},
        {0.49999999999999994, 0, 1},  // 17 digits; with 15 it is 0.500000000000000
        {0.004999, 2, 0},
        {-0.004, 2, 0},  // no negative zero
        {0.005, 2, 0.01},
        {0.125, 2, 0.13},  // exact half
        {0.375, 2, 0.38},
        {99.995, 2, 100},  // the nines carry
        {999999.995, 2, 1000000},
        {9.9999999999999995, 5, 10},  // reads as 10 already
        {123456.785, 2, 123456.79},   // binary 123456.78500000000349
        {1234567.125, 2, 1234567.13},
        {12345678.12345650, 6, 12345678.123457},  // 15 digits: 12345678.1234565
        {12345678.12345644, 6, 12345678.123456},  // 15 digits: 12345678.1234564
        {33.333333333333336, 2, 33.33},
        {66.666666666666671, 2, 66.67},
        {0.000005, 5, 0.00001},
        {0.0000049999, 5, 0},
        {1e-20, 5, 0},
        {1e15, 2, 1e15},
        {123456789012345.6, 2, 123456789012346},  // no more than 15 digits are looked at
        {7.0 / 3.0, 5, 2.33333},
        {1.1 + 2.2, 2, 3.3},         // 3.3000000000000003
        {0.1 + 0.7, 1, 0.8},         // 0.79999999999999993
        {4.35 * 100, 0, 435},        // 434.99999999999994
        {1.15 * 100 / 100, 1, 1.2},  // 1.15 is binary 1.14999999999999991
        {1234.5, -2, 1200},
        {1250, -2, 1300},
        {49, -2, 0},
    };
    return casos;
}
