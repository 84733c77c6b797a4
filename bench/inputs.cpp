// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "bench/inputs.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <ios>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double receiverSpacing = 5.0; // m

/// The distributions of the standard library differ between systems, its engines do not.
class Noise
{
public:
    /// Between -1 and 1.
    double next()
    {
        return static_cast<double>(engine()) / 2147483648.0 - 1.0;
    }

private:
    std::mt19937 engine{20260301};
};

/// A file to be written with so many decimals; what goes wrong is thrown.
std::ofstream create(const std::string &path, int decimals)
{
    std::ofstream stream;
    stream.exceptions(std::ios::badbit | std::ios::failbit);
    stream.open(path, std::ios::binary);
    stream << std::fixed;
    stream.precision(decimals);
    return stream;
}

/// Where a shot's first receiver stands.
double lineStart(int shot, Layouts layouts)
{
    return layouts == Layouts::Rolling ? shot / 100 * 100.0 : 0.0;
}

double receiverX(int shot, int receiver, int receivers, Layouts layouts)
{
    const bool moved = layouts == Layouts::DifferentInLastReceiver && receiver == receivers - 1;
    return lineStart(shot, layouts) + receiver * receiverSpacing + (moved ? 0.01 * shot : 0.0);
}

/// Between two receivers, walking over the layout.
double shotX(int shot, int receivers, Layouts layouts)
{
    return lineStart(shot, layouts) + (shot % (receivers + 1) - 0.5) * receiverSpacing;
}

double elevation(double x)
{
    return 212.0 + 3.0 * std::sin(x / 90.0);
}

/// Seconds: the earlier one of the direct and the head wave, and a picking error.
double firstBreak(double offset, Noise &noise)
{
    constexpr double upper = 500.0; // m/s
    constexpr double lower = 1800.0;
    constexpr double intercept = 0.0231;
    return std::min(offset / upper, offset / lower + intercept) + 0.0005 * (1.0 + noise.next());
}

double shotTime(int shot, int receiver, int receivers, Layouts layouts, Noise &noise)
{
    return firstBreak(
        std::abs(receiverX(shot, receiver, receivers, layouts) - shotX(shot, receivers, layouts)),
        noise);
}

/// A Ricker wavelet of 80 Hz, `time` seconds after its arrival.
double wavelet(double time)
{
    const double phase = std::numbers::pi * 80.0 * (time - 0.0125);
    return (1.0 - 2.0 * phase * phase) * std::exp(-phase * phase);
}

/// Seismograms of ever larger offset, with noise all over. The wavelet stands in a table: gigabytes
/// have to be ready soon.
class Seismograms
{
public:
    explicit Seismograms(double interval)
        : samplesPerSecond(1.0 / interval)
    {
        for (std::size_t i = 0; i < shape.size(); ++i)
            shape[i] = wavelet(static_cast<double>(i) * interval);
        for (double &value : noise)
            value = source.next() * source.next() * source.next();
    }

    /// Puts the next trace into `trace`, with amplitudes around 1 at the arrival.
    void next(std::vector<double> &trace)
    {
        const double offset = (static_cast<double>(traceNumber % 480) + 0.5) * receiverSpacing;
        const auto arrival =
            static_cast<std::size_t>(firstBreak(offset, source) * samplesPerSecond);
        const double gain = 0.02 * (1.1 + source.next());
        for (std::size_t i = 0; i < trace.size(); ++i)
            trace[i] = gain * noise[(i + traceNumber * 7919) % noise.size()];
        for (std::size_t i = 0; i < shape.size() && arrival + i < trace.size(); ++i)
            trace[arrival + i] += shape[i] / (1.0 + offset / 50.0);
        ++traceNumber;
    }

private:
    double samplesPerSecond;
    std::size_t traceNumber = 0;
    Noise source;
    std::array<double, 512> shape;
    std::array<double, 65536> noise;
};

template <typename Number>
void store(std::vector<char> &bytes, std::size_t offset, Number value)
{
    for (std::size_t i = 0; i < sizeof value; ++i)
        bytes[offset + i] = static_cast<char>(value >> 8 * i);
}

} // namespace

void writeSeisImager(const std::string &path, int shots, int receivers, Layouts layouts)
{
    Noise noise;
    std::ofstream file = create(path, 2);
    file << "First breaks, ms\n1 " << shots << '\n';
    for (int shot = 0; shot < shots; ++shot) {
        file << shotX(shot, receivers, layouts) << ' ' << receivers << '\n';
        for (int receiver = 0; receiver < receivers; ++receiver)
            file << receiverX(shot, receiver, receivers, layouts) << ' '
                 << 1000.0 * shotTime(shot, receiver, receivers, layouts, noise) << '\n';
    }
    file.close();
}

void writeGeogiga(const std::string &path, int shots, int receivers)
{
    Noise noise;
    std::ofstream file = create(path, 5);
    file << "TX_CURVE\nVERSION: 1.0\nINFO: position m, time s\nELEVATION: 214.5\n"
         << "TOTAL_NUMBER_OF_SHOTS: " << shots << '\n';
    for (int shot = 0; shot < shots; ++shot) {
        file << "SEISMIC_DATA_FILE_NAME: shot" << shot + 1
             << ".su\nSHOT_LOCATION: " << shotX(shot, receivers, Layouts::Shared)
             << "\nNUMBER_OF_RECEIVERS: " << receivers << "\nNo Position Time Channel\n";
        for (int receiver = 0; receiver < receivers; ++receiver)
            file << receiver + 1 << ' ' << receiverX(shot, receiver, receivers, Layouts::Shared)
                 << ' ' << shotTime(shot, receiver, receivers, Layouts::Shared, noise) << ' '
                 << receiver + 1 << "\r\n";
    }
    file.close();
}

void writeWinsism(const std::string &path, int shots, int receivers)
{
    std::ofstream file = create(path, 2);
    const auto section = [&file](const char *heading, int count, auto value) {
        file << heading << '\n';
        for (int i = 0; i < count; ++i)
            file << i + 1 << ' ';
        file << '\n';
        for (int i = 0; i < count; ++i)
            file << value(i) << ' ';
        file << '\n';
    };
    const auto shot = [=](int i) { return shotX(i, receivers, Layouts::Shared); };
    const auto receiver = [=](int i) { return receiverX(0, i, receivers, Layouts::Shared); };
    section("Shot number, Shot elevation", shots, [=](int i) { return elevation(shot(i)); });
    section("Shot number, Shot distance", shots, shot);
    section("Receiver number, receiver distance", receivers, receiver);
    section("Receiver number, receiver elevation", receivers,
            [=](int i) { return elevation(receiver(i)); });
    file << "FBP times\n" << std::string(static_cast<std::size_t>(shots), '\n');
    file.close();
}

void writeGeneric(const std::string &folder, int shots, int receivers)
{
    Noise noise;
    std::ofstream list = create(folder + "/shots.txt", 2);
    for (int shot = 0; shot < shots; ++shot) {
        const std::string name = "shot" + std::to_string(shot + 1) + ".txt";
        const double x = shotX(shot, receivers, Layouts::Rolling);
        list << name << ';' << x << ';' << elevation(x) << '\n';
        std::ofstream file = create(folder + '/' + name, 5);
        for (int receiver = 0; receiver < receivers; ++receiver) {
            const double position = receiverX(shot, receiver, receivers, Layouts::Rolling);
            file << position << ';' << elevation(position) << ';'
                 << shotTime(shot, receiver, receivers, Layouts::Rolling, noise) << '\n';
        }
        file.close();
    }
    list.close();
}

void writeSeismicUnix(const std::string &path, int traces, int samples)
{
    constexpr double millivolts = 120.0; // at the arrival on the source
    constexpr std::size_t headerSize = 240;
    std::ofstream file = create(path, 0);
    Seismograms seismograms(0.00025);
    std::vector<double> values(static_cast<std::size_t>(samples));
    std::vector<char> trace(headerSize + 4 * values.size());
    for (int number = 0; number < traces; ++number) {
        store(trace, 70, std::uint16_t{1});                               // coordinate scalar
        store(trace, 72, std::bit_cast<std::uint32_t>(-5));               // source x
        store(trace, 80, static_cast<std::uint32_t>(5 * (number % 480))); // receiver x
        store(trace, 114, static_cast<std::uint16_t>(samples));
        store(trace, 116, std::uint16_t{250}); // microseconds
        seismograms.next(values);
        for (std::size_t i = 0; i < values.size(); ++i)
            store(trace, headerSize + 4 * i,
                  std::bit_cast<std::uint32_t>(static_cast<float>(millivolts * values[i])));
        file.write(trace.data(), static_cast<std::streamsize>(trace.size()));
    }
    file.close();
}

void writeDolang(const std::string &base, int channels, int samples)
{
    constexpr double counts = 2e6; // at the arrival on the source
    Seismograms seismograms(0.00025);
    std::vector<double> values(static_cast<std::size_t>(samples));
    for (const std::string kind : {"A", "C", "R"}) {
        std::ofstream header = create(base + '.' + kind + "DT", 0);
        header << "\"Record " << kind << "\"\n"
               << channels << "\n\"vertical\"\n\"gain 24 dB\"\n0\n"
               << samples << "\n4000\n";
        header.close();
        for (int channel = 1; channel <= channels; ++channel) {
            std::ofstream file =
                create(base + '.' + kind + (channel < 10 ? "0" : "") + std::to_string(channel), 0);
            seismograms.next(values);
            for (const double value : values)
                file << static_cast<std::int32_t>(counts * value) << '\n';
            file.close();
        }
    }
}
