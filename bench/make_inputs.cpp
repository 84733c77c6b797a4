// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

// make_inputs FOLDER DIVISOR: writes what bench/compare converts; with 10 a tenth of it.

#include "bench/inputs.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>

namespace {

void makeInputs(const std::string &folder, int divisor)
{
    std::filesystem::create_directories(folder + "/generic");
    std::filesystem::create_directories(folder + "/dolang");
    writeSeismicUnix(folder + "/line.su", 10000 / divisor, 5000);
    writeDolang(folder + "/dolang/LINE", 24, 200000 / divisor);
    writeSeisImager(folder + "/line.vs", 2000 / divisor, 500, Layouts::Rolling);
    writeGeneric(folder + "/generic", 2000 / divisor, 500);
    writeGeogiga(folder + "/line.txt", 2000 / divisor, 500);
    writeWinsism(folder + "/line.xyz", 2000 / divisor, 500);
    writeSeisImager(folder + "/shared_few.vs", 1000 / divisor, 48, Layouts::Shared);
    writeSeisImager(folder + "/shared_many.vs", 20000 / divisor, 48, Layouts::Shared);
    writeSeisImager(folder + "/different_few.vs", 1000 / divisor, 48,
                    Layouts::DifferentInLastReceiver);
    writeSeisImager(folder + "/different_many.vs", 20000 / divisor, 48,
                    Layouts::DifferentInLastReceiver);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3 || std::atoi(argv[2]) < 1) {
        std::cerr << "make_inputs FOLDER DIVISOR\n";
        return 2;
    }
    try {
        makeInputs(argv[1], std::atoi(argv[2]));
    } catch (const std::exception &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
