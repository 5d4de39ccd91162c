// SPDX-License-Identifier: GPL-3.0-or-later
// read_datafile FILE: reads an interchange data file as an import does and prints the number of its
// records.
#include "datafile/DBCFileReader.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("read_datafile FILE\n", stderr);
        return 2;
    }
    const auto reader = DBCFileReader::initWithFullFileName(QString::fromLocal8Bit(argv[1]));
    DBCError error;
    const auto records = reader->loadData(&error);
    if (!records || error) {
        std::fprintf(stderr, "read_datafile: %s\n", qPrintable(error.toString()));
        return 1;
    }
    std::printf("%zu\n", records->size());
    return 0;
}
