// The colours by name: those on offer, and those of earlier versions, whose names are words.
#pragma once

#include <array>

#include "platform/views/color.h"

namespace gexlo {

struct NamedColor {
    const char* name;
    UIColor color;
};

namespace color_tables {

constexpr UIColor rgb(float red, float green, float blue) {
    return UIColor::colorWithRed_green_blue(red, green, blue);
}

// One word means different colours in different tables, so each is looked up in its own only.
// The fractions differ from the digits of a name by rounding, and stay so.

inline constexpr std::array<NamedColor, 32> kOldSubjectColors{{
    {"lightblue", rgb(0.76F, 0.87F, 0.95F)},     {"lightskyblue", rgb(0.59F, 0.80F, 0.95F)},
    {"deepskyblue", rgb(0.23F, 0.69F, 0.92F)},   {"royalblue", rgb(0.27F, 0.53F, 0.90F)},
    {"darkblue", rgb(0.18F, 0.35F, 0.70F)},      {"blueviolet", rgb(0.36F, 0.22F, 0.55F)},
    {"pink", rgb(0.95F, 0.80F, 0.83F)},          {"violet", rgb(0.90F, 0.58F, 0.90F)},
    {"magenta", rgb(0.80F, 0.32F, 0.80F)},       {"hotpink", rgb(1.00F, 0.41F, 0.71F)},
    {"deeppink", rgb(0.95F, 0.24F, 0.42F)},      {"crimson", rgb(0.78F, 0.13F, 0.24F)},
    {"navajowhite", rgb(1.00F, 0.94F, 0.65F)},   {"khaki", rgb(0.97F, 0.86F, 0.41F)},
    {"gold", rgb(0.93F, 0.78F, 0.00F)},          {"orange", rgb(0.95F, 0.64F, 0.00F)},
    {"salmon", rgb(0.98F, 0.50F, 0.45F)},        {"tomato", rgb(0.90F, 0.34F, 0.29F)},
    {"burlywood", rgb(0.87F, 0.72F, 0.53F)},     {"goldenrod", rgb(0.85F, 0.65F, 0.13F)},
    {"darkgoldenrod", rgb(0.70F, 0.51F, 0.04F)}, {"sandybrown", rgb(0.96F, 0.64F, 0.38F)},
    {"peru", rgb(0.80F, 0.52F, 0.25F)},          {"chocolate", rgb(0.82F, 0.41F, 0.12F)},
    {"brass", rgb(0.85F, 0.78F, 0.34F)},         {"lightgreen", rgb(0.56F, 0.93F, 0.56F)},
    {"limegreen", rgb(0.21F, 0.70F, 0.21F)},     {"yellowgreen", rgb(0.60F, 0.80F, 0.20F)},
    {"darkcyan", rgb(0.00F, 0.55F, 0.55F)},      {"slateblue", rgb(0.42F, 0.35F, 0.80F)},
    {"gray", rgb(0.80F, 0.80F, 0.80F)},          {"darkgray", rgb(0.60F, 0.60F, 0.60F)},
}};

inline constexpr std::array<NamedColor, 16> kOldTimetableColors{{
    {"white", rgb(1.0F, 1.0F, 1.0F)},
    {"lightgray", rgb(0.7F, 0.7F, 0.7F)},
    {"darkgray", rgb(0.4F, 0.4F, 0.4F)},
    {"black", rgb(0.1F, 0.1F, 0.1F)},
    {"yellow", rgb(1.0F, 0.92F, 0.05F)},
    {"orange", rgb(0.98F, 0.66F, 0.15F)},
    {"dirt", rgb(0.56F, 0.39F, 0.0F)},
    {"red", rgb(0.75F, 0.11F, 0.11F)},
    {"skyblue", rgb(0.38F, 0.85F, 0.85F)},
    {"green", rgb(0.04F, 0.24F, 0.04F)},
    {"blue", rgb(0.09F, 0.13F, 0.30F)},
    {"violet", rgb(0.2F, 0.11F, 0.30F)},
    {"pink", rgb(0.9F, 0.27F, 0.90F)},
    {"hotpink", rgb(0.8F, 0.16F, 0.61F)},
    {"purple", rgb(0.4F, 0.14F, 0.40F)},
    {"brown", rgb(0.25F, 0.07F, 0.07F)},
}};

inline constexpr std::array<NamedColor, 2> kOldTextColors{{
    {"black", rgb(0.0F, 0.0F, 0.0F)},
    {"white", rgb(1.0F, 1.0F, 1.0F)},
}};

inline constexpr std::array<NamedColor, 32> kSubjectColors{{
    {"#C2DEF2", rgb(0.76F, 0.87F, 0.95F)}, {"#95CBE5", rgb(0.58F, 0.80F, 0.90F)},
    {"#819FD2", rgb(0.51F, 0.62F, 0.82F)}, {"#4F96D0", rgb(0.31F, 0.59F, 0.82F)},
    {"#1479CC", rgb(0.08F, 0.47F, 0.80F)}, {"#1163A6", rgb(0.07F, 0.39F, 0.65F)},
    {"#FFCCDD", rgb(1.00F, 0.80F, 0.87F)}, {"#F29DCB", rgb(0.95F, 0.62F, 0.80F)},
    {"#DD99E1", rgb(0.87F, 0.60F, 0.88F)}, {"#B898D9", rgb(0.72F, 0.60F, 0.85F)},
    {"#8673BF", rgb(0.53F, 0.45F, 0.75F)}, {"#754A94", rgb(0.46F, 0.29F, 0.58F)},
    {"#F7F294", rgb(0.97F, 0.95F, 0.58F)}, {"#F3D230", rgb(0.95F, 0.82F, 0.19F)},
    {"#F89C38", rgb(0.97F, 0.61F, 0.22F)}, {"#FF7373", rgb(1.00F, 0.45F, 0.45F)},
    {"#F04853", rgb(0.94F, 0.28F, 0.33F)}, {"#B31212", rgb(0.70F, 0.07F, 0.07F)},
    {"#FEBB7F", rgb(1.00F, 0.73F, 0.50F)}, {"#C68F79", rgb(0.78F, 0.56F, 0.47F)},
    {"#A35F52", rgb(0.64F, 0.37F, 0.32F)}, {"#99402E", rgb(0.60F, 0.25F, 0.18F)},
    {"#CC6652", rgb(0.80F, 0.40F, 0.32F)}, {"#CC7A52", rgb(0.80F, 0.48F, 0.32F)},
    {"#B8E6B8", rgb(0.72F, 0.90F, 0.72F)}, {"#7ACC7A", rgb(0.48F, 0.80F, 0.48F)},
    {"#53A653", rgb(0.33F, 0.65F, 0.33F)}, {"#338033", rgb(0.20F, 0.50F, 0.20F)},
    {"#338073", rgb(0.20F, 0.50F, 0.45F)}, {"#59B3A4", rgb(0.35F, 0.70F, 0.64F)},
    {"#D9D9D9", rgb(0.85F, 0.85F, 0.85F)}, {"#B0B0B0", rgb(0.69F, 0.69F, 0.69F)},
}};

inline constexpr std::array<NamedColor, 16> kTimetableColors{{
    {"#FFFFFF", rgb(1.000F, 1.000F, 1.000F)},
    {"#B2B2B2", rgb(0.700F, 0.700F, 0.700F)},
    {"#666666", rgb(0.400F, 0.400F, 0.400F)},
    {"#191919", rgb(0.100F, 0.100F, 0.100F)},
    {"#FFEA0C", rgb(1.000F, 0.920F, 0.050F)},
    {"#FECD71", rgb(0.996F, 0.804F, 0.443F)},
    {"#C59775", rgb(0.773F, 0.592F, 0.459F)},
    {"#73584B", rgb(0.451F, 0.345F, 0.294F)},
    {"#D98594", rgb(0.851F, 0.522F, 0.580F)},
    {"#FE4D56", rgb(0.996F, 0.302F, 0.337F)},
    {"#930F17", rgb(0.576F, 0.059F, 0.090F)},
    {"#810761", rgb(0.506F, 0.027F, 0.380F)},
    {"#85B7BC", rgb(0.522F, 0.718F, 0.737F)},
    {"#236952", rgb(0.137F, 0.412F, 0.322F)},
    {"#6396D8", rgb(0.388F, 0.588F, 0.847F)},
    {"#033365", rgb(0.012F, 0.200F, 0.396F)},
}};

inline constexpr std::array<NamedColor, 2> kTextColors{{
    {"#000000", rgb(0.0F, 0.0F, 0.0F)},
    {"#FFFFFF", rgb(1.0F, 1.0F, 1.0F)},
}};

inline constexpr std::array<NamedColor, 15> kBackgroundColors{{
    {"#F3F0EC", rgb(0.948F, 0.936F, 0.920F)},
    {"#FAE2B8", rgb(0.980F, 0.882F, 0.710F)},
    {"#C59878", rgb(0.773F, 0.592F, 0.459F)},
    {"#9D8482", rgb(0.612F, 0.518F, 0.506F)},
    {"#FBE8E5", rgb(0.984F, 0.906F, 0.894F)},
    {"#EFCAD9", rgb(0.937F, 0.788F, 0.847F)},
    {"#DF93B3", rgb(0.875F, 0.573F, 0.698F)},
    {"#AC72A8", rgb(0.675F, 0.443F, 0.663F)},
    {"#CBD9D3", rgb(0.792F, 0.847F, 0.824F)},
    {"#99C3C1", rgb(0.592F, 0.761F, 0.757F)},
    {"#9CBCDD", rgb(0.604F, 0.737F, 0.867F)},
    {"#6A7FA2", rgb(0.412F, 0.498F, 0.639F)},
    {"bluestripe", UIColor::colorWithPatternImage("vintage_stripe")},
    {"cloud", UIColor::colorWithPatternImage("cloud")},
    {"brickwall", UIColor::colorWithPatternImage("brick-wall")},
}};

}  // namespace color_tables

}  // namespace gexlo
