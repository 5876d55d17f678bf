#ifndef TESTS_HISTORIES_WORLD_ROWS_H
#define TESTS_HISTORIES_WORLD_ROWS_H

#include "model/facts.h"

// The instruments and accounts that every world begins with.

namespace histories {

using model::uint64;

struct Row {
    const char* market;
    const char* code;
    const char* product;
    int listMask;  ///< 1 stock, 8 credit, 32 stock option, 128 and 16384 connect, 256 NEEQ
    int types;     ///< 2 and 1024 futures
    int feeType;
    double openFee;
    double closeFee;
    double closeTodayFee;
};

// Exchange fees of -1 within 1e-5 are not set; those just outside are.
inline constexpr Row kRows[] = {
    {"SH", "600000", "", 1 | 8, 0, 0, 0, 0, 0},
    {"SH", "600001", "out", 1, 0, 1, 1.5, 2.5, 3.5},
    {"SZ", "000001", "", 8 | 256, 0, 0, 0, 0, 0},
    {"SZ", "300750", "rb", 1 | 8 | 32, 2, 2, 0.5, 0.25, 1},
    {"BJ", "430047", "", 1 | 256, 0, 0, 0, 0, 0},
    {"SSE", "510050", "", 32 | 1, 0, 0, 0, 0, 0},
    {"SZSE", "159915", "", 32 | 8, 0, 0, 0, 0, 0},
    {"SHO", "10003762", "", 32, 0, 0, 0, 0, 0},
    {"SZO", "90000871", "", 32, 1024, 1, -1, 0.5, 0},
    {"NEEQ", "830400", "", 256, 0, 0, 0, 0, 0},
    {"NEEQ", "871232", "", 256 | 1, 0, 0, 0, 0, 0},
    {"HK", "00700", "", 128 | 16384, 0, 0, 0, 0, 0},
    {"HK", "00005", "", 128, 0, 0, 0, 0, 0},
    {"HK", "00388", "out", 16384, 0, 0, 0, 0, 0},
    {"HK", "HGT5", "", 128, 0, 0, 0, 0, 0},
    {"HK", "SGT7", "", 16384, 0, 0, 0, 0, 0},
    {"INE", "HGT5", "sc", 0, 2, 1, 20, 20, 0},
    {"INE", "sc2612", "sc", 0, 2, 2, -1.0, 0.4, -1.00002},
    {"SSEHKEX", "00001", "", 128, 0, 0, 0, 0, 0},
    {"SZSEHKEX", "00002", "", 16384, 0, 0, 0, 0, 0},
    {"SHFE", "rb2605", "rb", 0, 2, 2, 1.01, 1.01, -1.0},
    {"SHFE", "au2604", "au", 0, 2, 1, 10, -1.000009, -0.999991},
    {"DCE", "m2609", "m", 0, 2 | 1024, 1, 0, -1, 1.5},
    {"CZCE", "SR609", "SR", 0, 1024, 2, -1.000011, -0.999989, 3},
    {"GFEX", "si2606", "si", 0, 1024, 3, 5, 5, 5},
    {"DF", "p2609", "p", 0, 2, 1, 2.5, 2.5, 2.5},
    {"ZF", "CF609", "CF", 0, 2, 2, 4.3, 0, 0},
    {"SF", "cu2605", "cu", 0, 1024, 0, 1, 1, 1},
    {"GF", "lc2607", "lc", 0, 2, -1, 1, 1, 1},
    {"IF", "IF2606", "IF", 0, 2, 1, 7, 8, 9},
    {"CFFEX", "IF2606", "IF", 0, 2, 2, 0.23, 0.23, 3.45},
    {"CMEO", "ES", "ES", 0, 2, 1, 1, 1, 1},
    {"NYMEXO", "CL", "CL", 0, 0, 1, 1, 1, 1},
    {"CBOTO", "ZC", "ZC", 0, 0, 0, 0, 0, 0},
    {"COMEXO", "GC", "GC", 0, 0, 0, 0, 0, 0},
    {"WP", "A", "", 0, 2, 0, 0, 0, 0},
    {"WP.X", "A", "", 0, 1024, 0, 0, 0, 0},
    {"WPX", "A", "", 0, 2, 0, 0, 0, 0},
    {"FRGN", "A", "", 0, 2, 0, 0, 0, 0},
    {"sh", "600000", "", 1 | 8 | 256, 2, 1, 1, 1, 1},
    {"", "600000", "", 1, 2, 1, 3, 3, 3},
    {"", "", "", 32 | 128 | 16384, 1024, 2, 3, 3, 3},
};

struct AccountRow {
    uint64 key;
    int kind;
    int platform = 1;
};

// Several kinds share a key: prime brokerage reads every family's tables, income swap those of stocks and of futures,
// and the NEEQ list those of stocks, under their own.
inline constexpr AccountRow kAccounts[] = {
    {100, 2},
    {100, 10},
    {100, 8},
    {100, 3},
    {100, 12},
    {101, 1, 9},
    {101, 12, 9},
    {101, 16},
    {101, 5},
    {101, 8},
    {102, 7},
    {102, 11},
    {102, 12},
    {103, 6},
    {103, 12},
    {103, 2},
    {104, 10},
    {104, 12},
    {105, 5},
    {106, 1, 9},
    {107, 5, 3},
    {0, 2},
    {0, 11},
    {0, 7},
    {~0ULL, 6},
    {~0ULL, 1},
    {108, 16},
    {109, 3},
    {100, -1},
    {100, 0},
    {100, 4},
    {101, 9},
    {101, 13},
    {102, 14},
    {103, 15},
    {101, 17},
    {101, 1 + (1 << 16)},
};

}  // namespace histories

#endif  // TESTS_HISTORIES_WORLD_ROWS_H
