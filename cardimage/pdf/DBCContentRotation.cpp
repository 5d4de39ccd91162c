// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCContentRotation.h"

#include "cardimage/pdf/DBCDecimalNumber.h"

#include <array>
#include <optional>

namespace {

constexpr qsizetype longestStreamWithoutMatrix = 19;
constexpr qsizetype startWithoutIntent = 10;
constexpr QByteArrayView renderingIntent = "/Perceptual";

using Matrix = std::array<double, 6>;

std::optional<Matrix> firstMatrix(QByteArrayView data)
{
    const qsizetype intent = data.indexOf(renderingIntent);
    const qsizetype save = data.indexOf('q', intent >= 0 ? intent : startWithoutIntent);
    // The first number begins after "q" and one blank.
    qsizetype begin = save + 2;
    if (save < 0 || begin > data.size())
        return std::nullopt;
    Matrix matrix {};
    for (size_t i = 0; i < matrix.size(); ++i) {
        if (i > 0) {
            const qsizetype space = data.indexOf(' ', begin);
            if (space < 0)
                return std::nullopt;
            begin = space + 1;
        }
        matrix[i] = leadingDecimalNumber(data.sliced(begin));
    }
    return matrix;
}

qint32 rotationOf(const Matrix& matrix)
{
    struct Row {
        std::array<bool, 6> nonZero;
        qint32 degrees;
    };
    static constexpr std::array<Row, 3> table {{
        {{true, false, false, true, true, true}, 180},
        {{false, true, true, false, false, true}, 90},
        {{false, true, true, false, true, false}, 270},
    }};
    std::array<bool, 6> nonZero {};
    for (size_t i = 0; i < matrix.size(); ++i)
        nonZero[i] = matrix[i] != 0;
    for (const Row& row : table) {
        if (row.nonZero == nonZero)
            return row.degrees;
    }
    return 0;
}

} // namespace

void GetRotateDegreeFromStreamData(QByteArrayView data, qint32* outDegrees)
{
    if (!outDegrees)
        return;
    *outDegrees = 0;
    if (data.size() <= longestStreamWithoutMatrix)
        return;
    if (const auto matrix = firstMatrix(data))
        *outDegrees = rotationOf(*matrix);
}
