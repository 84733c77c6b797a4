// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "view/record_colours.h"

#include "view/record_density.h"

namespace {

/// The colour `part` of the way from `from` to `to`.
QColor mixed(const QColor &from, const QColor &to, double part)
{
    const auto mix = [part](int a, int b) { return qRound(a + part * (b - a)); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

} // namespace

QColor deadColour()
{
    return {86, 180, 233};
}

std::vector<QRgb> densityColours(const QPalette &palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    std::vector<QRgb> colours(greatestShade + 1, base.rgb());
    colours[deadShade] = deadColour().rgb();
    for (std::size_t shade = leastShade; shade <= greatestShade; ++shade)
        colours[shade] =
            mixed(base, text,
                  static_cast<double>(shade - leastShade) / (greatestShade - leastShade))
                .rgb();
    return colours;
}
