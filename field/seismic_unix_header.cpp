// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seismic_unix_header.h"

#include "field/numbers.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include <QtEndian>

namespace {

/// A zero of the field's type.
using SuNumber = std::variant<std::int16_t, std::uint16_t, std::int32_t, float>;

struct SuField
{
    std::string name;
    SuNumber type;
    std::size_t offset;
    std::size_t size; ///< 2 or 4 bytes
};

/// The fields without a gap, in the order of the header.
const std::vector<SuField> &suFields()
{
    const auto make = [] {
        const std::pair<SuNumber, const char *> runs[] = {
            {std::int32_t{}, "tracl tracr fldr tracf ep cdp cdpt"},
            {std::int16_t{}, "trid nvs nhs duse"},
            {std::int32_t{}, "offset gelev selev sdepth gdel sdel swdep gwdep"},
            {std::int16_t{}, "scalel scalco"},
            {std::int32_t{}, "sx sy gx gy"},
            {std::int16_t{}, "counit wevel swevel sut gut sstat gstat tstat laga lagb delrt muts"},
            {std::int16_t{}, "mute"},
            {std::uint16_t{}, "ns dt"},
            {std::int16_t{}, "gain igc igi corr sfs sfe slen styp stas stae tatyp afilf afils"},
            {std::int16_t{}, "nofilf nofils lcf hcf lcs hcs year day hour minute sec timbas trwf"},
            {std::int16_t{}, "grnors grnofr grnlof gaps otrav"},
            {float{}, "d1 f1 d2 f2 ungpow unscale"},
            {std::int32_t{}, "ntr"},
            {std::int16_t{}, "mark shortpad unass1 unass2 unass3 unass4 unass5 unass6 unass7"},
            {std::int16_t{}, "unass8 unass9 unass10 unass11 unass12 unass13 unass14"},
        };
        std::vector<SuField> fields;
        std::size_t offset = 0;
        for (const auto &[type, names] : runs) {
            std::istringstream words(names);
            for (std::string name; words >> name;) {
                const std::size_t size = std::visit([](auto zero) { return sizeof zero; }, type);
                fields.push_back({name, type, offset, size});
                offset += size;
            }
        }
        return fields;
    };
    static const std::vector<SuField> fields = make();
    return fields;
}

bool isEqual(const SuHeaderBytes &a, const SuHeaderBytes &b, const SuField &field)
{
    const auto haveEqual = [&](auto zero) {
        return numberAt<decltype(zero)>(a, field.offset)
               == numberAt<decltype(zero)>(b, field.offset);
    };
    return field.size == 2 ? haveEqual(std::uint16_t{}) : haveEqual(std::uint32_t{});
}

constexpr std::string_view bitsMark = "0x"; // before a float that is no number, by its bits

std::string valueOf(const SuHeaderBytes &header, const SuField &field)
{
    if (std::holds_alternative<float>(field.type)
        && std::isnan(numberAt<float>(header, field.offset))) {
        std::ostringstream bits;
        bits << bitsMark << std::hex << numberAt<std::uint32_t>(header, field.offset);
        return bits.str();
    }
    return std::visit(
        [&](auto zero) { return shortest(numberAt<decltype(zero)>(header, field.offset)); },
        field.type);
}

/// False when the text is no number of the field's type.
bool putValue(SuHeaderBytes &header, const SuField &field, std::string_view text)
{
    const auto put = [&](auto number, auto... base) {
        const char *const last = text.data() + text.size();
        const auto [end, error] = std::from_chars(text.data(), last, number, base...);
        putNumber(header, field.offset, number);
        return error == std::errc() && end == last;
    };
    if (std::holds_alternative<float>(field.type) && text.starts_with(bitsMark)) {
        text.remove_prefix(bitsMark.size());
        return put(std::uint32_t{}, 16);
    }
    return std::visit([&](auto zero) { return put(zero); }, field.type);
}

} // namespace

ByteOrder machineByteOrder()
{
    return std::endian::native == std::endian::big ? ByteOrder::bigEndian : ByteOrder::littleEndian;
}

void swapFields(SuHeaderBytes &header)
{
    const auto swap = [&header](auto zero, std::size_t offset) {
        putNumber(header, offset, qbswap(numberAt<decltype(zero)>(header, offset)));
    };
    for (const SuField &field : suFields())
        if (field.size == 2)
            swap(quint16{}, field.offset);
        else
            swap(quint32{}, field.offset);
}

int bitsTaken(const SuHeaderBytes &header)
{
    const auto bitsOf = [](auto number) {
        if constexpr (std::is_floating_point_v<decltype(number)>)
            return 0;
        else
            return static_cast<int>(std::bit_width(
                static_cast<std::uint64_t>(std::llabs(static_cast<long long>(number)))));
    };
    int bits = 0;
    for (const SuField &field : suFields())
        bits += std::visit(
            [&](auto zero) { return bitsOf(numberAt<decltype(zero)>(header, field.offset)); },
            field.type);
    return bits;
}

std::string fieldsAsText(const SuHeaderBytes &header, const SuHeaderBytes &expected)
{
    std::string text;
    if (header == expected)
        return text;
    for (const SuField &field : suFields())
        if (!isEqual(header, expected, field))
            text += (text.empty() ? "" : " ") + field.name + ' ' + valueOf(header, field);
    return text;
}

bool putFields(SuHeaderBytes &header, std::string_view text)
{
    SuHeaderBytes changed = header;
    std::istringstream words{std::string(text)};
    std::string name;
    std::string value;
    while (words >> name) {
        const auto field = std::ranges::find(suFields(), name, &SuField::name);
        if (field == suFields().end() || !(words >> value) || !putValue(changed, *field, value))
            return false;
    }
    header = changed;
    return true;
}
