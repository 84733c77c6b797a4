// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

/// Names of the files that make up a Velarix project folder.
inline constexpr char gridFileName[] = "grid.xml";
inline constexpr char tomodocFileName[] = "tomodoc.xml";
inline constexpr char tracesFileName[] = "traces.xml";
inline constexpr char palettesFileName[] = "palettes.xml";
inline constexpr char refractionFileName[] = "refraction.xml";
