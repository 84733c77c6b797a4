// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/odd_files.h"

std::string repeated(const std::string &text, std::size_t count)
{
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

ManyShots manyGeogigaShots()
{
    ManyShots shots;
    shots.input = "TX_CURVE\nVERSION: 1\nELEVATION:100\nTOTAL_NUMBER_OF_SHOTS:1000000\n"
                  + repeated("SEISMIC_DATA_FILE_NAME:a\nSHOT_LOCATION:1\nNUMBER_OF_RECEIVERS:1\n"
                             "-\n1 5 0.0025 1\r\n",
                             million);
    shots.otte = "otte\n1.0\n2\n1\n5;\n100;\n" + repeated("1;", million) + '\n'
                 + repeated("100;", million) + '\n';
    for (std::size_t i = 0; i < million; ++i)
        shots.otte += "0\n" + std::to_string(i) + "\n2.5;\n";
    return shots;
}

ManyShots manyWinsismShots()
{
    std::string numbers;
    for (std::size_t i = 1; i <= million; ++i)
        numbers += std::to_string(i) + ' ';
    ManyShots shots;
    shots.input = "Shot number, Shot elevation\n" + numbers + '\n' + repeated("100 ", million)
                  + "\nShot number, Shot distance\n" + numbers + '\n' + repeated("1 ", million)
                  + "\nReceiver number, receiver distance\n1\n5\n"
                    "Receiver number, receiver elevation\n1\n100\nFBP times\n"
                  + repeated("\n", million);
    shots.otte = "otte\n1.0\n2\n1\n5;\n100;\n" + repeated("1;", million) + '\n'
                 + repeated("100;", million) + '\n';
    for (std::size_t i = 0; i < million; ++i)
        shots.otte += "0\n" + std::to_string(i) + "\n\n";
    return shots;
}

ManyShots manySeisImagerShots()
{
    ManyShots shots = {"-\n0 1000000\n", "otte\n1.0\n2\n1000000\n"};
    for (std::size_t i = 0; i < million; ++i) {
        shots.input += "1 1\n" + std::to_string(i) + " 2.5\n";
        shots.otte += std::to_string(i) + ";\n0;\n";
    }
    shots.otte += repeated("1;", million) + '\n' + repeated("0;", million) + '\n';
    for (std::size_t i = 0; i < million; ++i) {
        const std::string index = std::to_string(i);
        shots.otte += index + '\n' + index + "\n2.5;\n";
    }
    return shots;
}
