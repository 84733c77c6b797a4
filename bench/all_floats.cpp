// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// A long test, run by hand after a change to appendNumber or toDouble: prints every float there is
// and 10^8 doubles, and parses 10^7 texts, comparing with what the standard library gives. A few
// minutes on two cores.
//
//   all_floats                     all of it
//   all_floats --range FIRST LAST  the floats with these bits alone, ends included

#include "traveltime/text.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <locale.h>
#include <mutex>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

std::atomic<std::uint64_t> differences = 0;

void tellDifference(const std::string &what, const std::string &ours, const std::string &expected)
{
    static std::mutex mutex;
    if (++differences > 20)
        return;
    const std::lock_guard lock(mutex);
    std::cout << what << ": \"" << ours << "\", \"" << expected << "\" expected" << std::endl;
}

/// Runs `check` for every chunk from 0 to `chunkCount` - 1 on all cores, and tells how many
/// differences it found.
void inParallel(const std::string &what, std::uint64_t chunkCount,
                const std::function<void(std::uint64_t chunk)> &check)
{
    const std::uint64_t before = differences;
    std::atomic<std::uint64_t> next = 0;
    std::vector<std::thread> threads;
    for (unsigned int i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i)
        threads.emplace_back([&] {
            for (std::uint64_t chunk = next++; chunk < chunkCount; chunk = next++)
                check(chunk);
        });
    for (std::thread &thread : threads)
        thread.join();
    std::cout << what << ": " << differences - before << " differences" << std::endl;
}

/// Prints numbers with appendNumber and with the standard library.
class Printing
{
public:
    /// Compares appendNumber with std::to_chars, for some numbers with a stream too.
    template <typename Number>
    void check(Number value)
    {
        ours.clear();
        appendNumber(ours, value);
        std::array<char, 32> buffer;
        const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::general, 6)
                             .ptr;
        const std::string_view expected(buffer.data(), end);
        if (ours != expected)
            tellDifference("text", ours, std::string(expected));
        if (++count % 997 != 0)
            return;
        stream.str("");
        stream << value;
        if (ours != stream.view())
            tellDifference("text", ours, stream.str());
    }

private:
    std::string ours;
    std::ostringstream stream;
    std::uint64_t count = 0;
};

void checkFloats(std::uint64_t first, std::uint64_t last)
{
    constexpr std::uint64_t chunkSize = 1 << 20;
    const std::uint64_t total = last - first + 1;
    inParallel(std::to_string(total) + " floats printed", (total + chunkSize - 1) / chunkSize,
               [=](std::uint64_t chunk) {
                   Printing printing;
                   const std::uint64_t begin = first + chunk * chunkSize;
                   for (std::uint64_t bits = begin; bits <= std::min(last, begin + chunkSize - 1);
                        ++bits)
                       printing.check(std::bit_cast<float>(static_cast<std::uint32_t>(bits)));
               });
}

/// A number as people write them: up to nine digits, a few of them decimals. Those with seven
/// digits and a 5 at the end lie between two texts.
double decimalNumber(std::mt19937_64 &random)
{
    const auto digits = static_cast<double>(random() % 1000000000);
    double value = std::floor(digits / std::pow(10.0, static_cast<double>(random() % 9)));
    if (random() % 4 == 0)
        value = 10.0 * value + 5.0;
    value /= std::pow(10.0, static_cast<double>(random() % 13));
    return random() % 2 == 0 ? value : -value;
}

void checkDoubles()
{
    constexpr std::uint64_t chunkSize = 100000;
    inParallel("100000000 doubles printed, half of them decimal numbers and their neighbours", 1000,
               [](std::uint64_t chunk) {
                   std::mt19937_64 random(chunk);
                   Printing printing;
                   for (std::uint64_t i = 0; i < chunkSize / 2; ++i)
                       printing.check(std::bit_cast<double>(random()));
                   for (std::uint64_t i = 0; i < chunkSize / 2; ++i) {
                       const double value = decimalNumber(random);
                       const std::array candidates = {value, value, std::nextafter(value, 0.0),
                                                      std::nextafter(value, HUGE_VAL)};
                       printing.check(candidates[random() % candidates.size()]);
                   }
               });
}

/// A text that often is a number, and sometimes nearly one.
std::string numberText(std::mt19937_64 &random)
{
    static const std::vector<std::string> rare = {
        "inf",
        "INFINITY",
        "nan",
        "NaN(12)",
        "nan(",
        "in",
        "0x",
        "0x1.8p",
        "p3",
        "0X.8P-4",
        "1e",
        "e5",
        ",",
        "..",
        "+-",
        "\r",
        " ",
        "\xff",
        "m",
        "1e400",
        "1e-330",
        "4.9e-324",
        "1.7976931348623159e308",
    };
    const auto digits = [&random](std::uint64_t most) {
        std::string text;
        for (std::uint64_t count = random() % (most + 1); count > 0; --count)
            text += static_cast<char>('0' + random() % 10);
        return text;
    };
    const auto oneOf = [&random](const std::vector<std::string> &texts) {
        return texts[random() % texts.size()];
    };
    std::string text = oneOf({"", "", "", " ", "\t", "\n \v"}) + oneOf({"", "", "", "-", "+"});
    if (random() % 16 == 0)
        text += oneOf(rare);
    text += digits(random() % 8 == 0 ? 40 : 7) + oneOf({"", ".", ".", "."})
            + digits(random() % 8 == 0 ? 40 : 6);
    if (random() % 4 == 0)
        text += oneOf({"e", "E"}) + oneOf({"", "-", "+"}) + digits(random() % 8 == 0 ? 5 : 2);
    if (random() % 8 == 0)
        text += oneOf(rare) + digits(3);
    return text;
}

void checkParsing()
{
    const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    inParallel("10000000 texts parsed", 100, [classic](std::uint64_t chunk) {
        std::mt19937_64 random(chunk);
        for (int i = 0; i < 100000; ++i) {
            const std::string text = numberText(random);
            const auto expected =
                std::bit_cast<std::uint64_t>(strtod_l(text.c_str(), nullptr, classic));
            const auto ours = std::bit_cast<std::uint64_t>(toDouble(text));
            if (ours != expected)
                tellDifference("bits of \"" + text + '"', std::to_string(ours),
                               std::to_string(expected));
        }
    });
    freelocale(classic);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 4 && std::string(argv[1]) == "--range") {
        checkFloats(std::strtoull(argv[2], nullptr, 0), std::strtoull(argv[3], nullptr, 0));
    } else if (argc == 1) {
        checkFloats(0, 0xffffffff);
        checkDoubles();
        checkParsing();
    } else {
        std::cerr << "all_floats [--range FIRST LAST]\n";
        return 2;
    }
    return differences == 0 ? 0 : 1;
}
