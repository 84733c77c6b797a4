// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/colours.h"

#include <array>

namespace {

// Lightness (CIE L*) 16, 56, 36, 66, 26 and 46 on white, 94, 52, 82, 49, 85 and 67 on black, with
// hues that the common colour blindnesses keep apart.
constexpr std::array<QRgb, shotColourCount> onLight = {0xff012755, 0xffe55a14, 0xff006140,
                                                       0xff15aed7, 0xff810116, 0xff0871b7};
constexpr std::array<QRgb, shotColourCount> onDark = {0xffeaedfe, 0xffd4540f, 0xff28e8a0,
                                                      0xff0e7f9d, 0xfffdc8c1, 0xff4aa8ff};

} // namespace

QColor colourOfShot(std::size_t shot, const QPalette &palette)
{
    return (isDark(palette) ? onDark : onLight)[shot % shotColourCount];
}

QColor colourOfFindings(const QPalette &palette)
{
    return isDark(palette) ? QColor(255, 110, 215) : QColor(200, 0, 130);
}

QColor dimmed(const QColor &colour, const QPalette &palette)
{
    constexpr int kept = 25; // percent
    const QColor base = palette.color(QPalette::Base);
    const auto mix = [](int a, int b) { return (a * kept + b * (100 - kept)) / 100; };
    return {mix(colour.red(), base.red()), mix(colour.green(), base.green()),
            mix(colour.blue(), base.blue())};
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

QPalette paperPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}
