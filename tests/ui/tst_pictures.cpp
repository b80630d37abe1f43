// SPDX-License-Identifier: MIT
#include <QtGui/QImage>
#include <QtTest/QTest>

// Themes and widgets of clients name these paths.
class TestPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachPathHoldsAPictureInTwoSizes()
    {
        const std::pair<QString, QSize> pictures[] = {
            {":/Ovrin/Tree/Images/Public/Control/Tree/HomePage", {16, 16}},
            {":/Ovrin/Tree/Images/Public/Control/Tree/LastPage", {16, 16}},
            {":/Ovrin/Tree/Images/Public/Control/Tree/NextPage", {16, 16}},
            {":/Ovrin/Tree/Images/Public/Control/Tree/PreviousPage", {16, 16}},
            {":/Ovrin/Icon/Images/Public/Icon/SepHide", {64, 10}},
            {":/Ovrin/Icon/Images/Public/Icon/SepShow", {64, 10}}};
        for (const auto &[path, size] : pictures) {
            QCOMPARE(QImage(path + ".png").size(), size);
            QCOMPARE(QImage(path + "@2x.png").size(), size * 2);
        }
    }
};

QTEST_GUILESS_MAIN(TestPictures)
#include "tst_pictures.moc"
