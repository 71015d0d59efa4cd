// mirvane --screenshot draws the main window with a file loaded, offscreen.
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include "app/shell/application.h"
#include "lang/lookup.h"

class ScreenshotTest : public QObject {
    Q_OBJECT

private slots:
    void drawsTheWindowWithTheFileAtAFixedSize() {
        const QString typ = QString(MIRVANE_SHARED_DIR) + "/corpus/binary/suke-tmz.typ";
        if (!QFileInfo::exists(typ)) QSKIP("no corpus beside the repository");
        QTemporaryDir folder;
        const QString out = folder.filePath("fenetre.png");
        QCOMPARE(mirvane::app::RunMirvane({"--screenshot", out, "\"" + typ + "\""}), 0);
        const QImage picture(out);
        QVERIFY(!picture.isNull());
        QCOMPARE(picture.size() / picture.devicePixelRatio(), QSize(1280, 800));
    }

    void drawsTheMapsetsWindowOfThePrefixGivenAndRefusesAnUnknownWindow() {
        QTemporaryDir folder;
        qputenv("WINEPREFIX", folder.filePath("empty prefix").toUtf8());
        const QString out = folder.filePath("mapsets.png");
        QCOMPARE(mirvane::app::RunMirvane({"--screenshot", out, "--window", "frmMapsets", "--language", "English"}), 0);
        QVERIFY(!QImage(out).isNull());
        QCOMPARE(mirvane::app::RunMirvane({"--screenshot", out, "--window", "frmNothing"}), 2);
        qunsetenv("WINEPREFIX");
        mirvane::SetLanguageName(mirvane::kBuiltInLanguage);
    }
};

QTEST_MAIN(ScreenshotTest)
#include "test_screenshot.moc"
