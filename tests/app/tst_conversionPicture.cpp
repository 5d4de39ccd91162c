// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the drawings of the two operations at the usual scales and in light and dark.
#include "app/DBCConversionPicture.h"

#include <QImage>
#include <QTest>

using Subject = DBCConversionPicture::Subject;

namespace {

const QColor lightWindow(240, 240, 240);
const QColor darkWindow(40, 40, 44);

QPalette paletteOf(bool isDark)
{
    QPalette palette;
    palette.setColor(QPalette::Window, isDark ? darkWindow : lightWindow);
    palette.setColor(QPalette::WindowText, isDark ? Qt::white : Qt::black);
    palette.setColor(QPalette::Base, isDark ? Qt::black : Qt::white);
    palette.setColor(QPalette::Highlight, QColor(40, 120, 220));
    return palette;
}

// Returns a drawing of the widget with a margin around it, on the window's colour.
QImage drawn(Subject subject, double scale, bool isDark = false, QSize margin = {0, 0})
{
    DBCConversionPicture picture;
    picture.setSubject(subject);
    picture.setPalette(paletteOf(isDark));
    picture.resize(picture.sizeHint() + margin);
    QImage image(picture.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(isDark ? darkWindow : lightWindow);
    picture.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

int darkestIn(const QImage& image, const QRect& place)
{
    int darkest = 255;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x)
            darkest = std::min(darkest, qGray(image.pixel(x, y)));
    }
    return darkest;
}

// Returns whether anything is drawn in this place.
bool isMarked(const QImage& image, const QRect& place)
{
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            if (image.pixelColor(x, y) != lightWindow)
                return true;
        }
    }
    return false;
}

} // namespace

class tst_conversionPicture : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<double>("scale");
        QTest::newRow("100 %") << 1.0;
        QTest::newRow("150 %") << 1.5;
        QTest::newRow("200 %") << 2.0;
    }

    void eachSubjectHasAPictureOfItsOwn()
    {
        QFETCH_GLOBAL(double, scale);
        QVERIFY(drawn(Subject::Export, scale) != drawn(Subject::Import, scale));
        QVERIFY(drawn(Subject::Downwards, scale).height() < drawn(Subject::Import, scale).height());
    }

    void nothingIsCutOff()
    {
        QFETCH_GLOBAL(double, scale);
        for (const Subject subject : {Subject::Export, Subject::Import, Subject::Downwards}) {
            const QImage image = drawn(subject, scale);
            const QRect all = image.rect();
            QVERIFY(isMarked(image, all));
            QVERIFY(!isMarked(image, QRect(0, 0, all.width(), 1)));
            QVERIFY(!isMarked(image, QRect(0, all.height() - 1, all.width(), 1)));
            QVERIFY(!isMarked(image, QRect(0, 0, 1, all.height())));
            QVERIFY(!isMarked(image, QRect(all.width() - 1, 0, 1, all.height())));
        }
    }

    // Examines the left side of the drawn folder, at half the height of its pocket. A blurred line
    // would begin with a colour paler than the line's own.
    void straightLinesAreSharp()
    {
        QFETCH_GLOBAL(double, scale);
        for (const QSize margin : {QSize(0, 0), QSize(7, 3), QSize(6, 2)}) {
            const QImage image = drawn(Subject::Import, scale, false, margin);
            const int row = qRound(42 * scale) + qRound(margin.height() / 2 * scale);
            const int ink = darkestIn(image, image.rect());
            int side = 0;
            while (image.pixelColor(side, row) == lightWindow)
                ++side;
            QVERIFY(ink < 80);
            QCOMPARE(qGray(image.pixel(side, row)), ink);
        }
    }

    void pictureFollowsThePalette()
    {
        QFETCH_GLOBAL(double, scale);
        const QImage image = drawn(Subject::Export, scale, true);
        int lightest = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                lightest = std::max(lightest, qGray(image.pixel(x, y)));
        }
        QVERIFY(lightest > 180);
        QVERIFY(image != drawn(Subject::Export, scale));
    }

    void pictureStandsInTheMiddle()
    {
        QFETCH_GLOBAL(double, scale);
        const QSize margin(80, 40);
        const QImage image = drawn(Subject::Downwards, scale, false, margin);
        const QRect all = image.rect();
        const int side = qRound(margin.width() / 2 * scale);
        QVERIFY(!isMarked(image, QRect(0, 0, side, all.height())));
        QVERIFY(!isMarked(image, QRect(all.width() - side, 0, side, all.height())));
        QVERIFY(isMarked(image, all.adjusted(side, 0, -side, 0)));
    }
};

QTEST_MAIN(tst_conversionPicture)
#include "tst_conversionPicture.moc"
