// frmTypSpeciaux: the window asks for what it needs, and what it builds is
// byte for byte what mirvane-cli special writes with the same seed.
#include <QComboBox>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

#include "app/special/special_typ_window.h"
#include "child_widget.h"
#include "document/binary_writer.h"
#include "scripted_prompts.h"

using mirvane::app::SpecialTypWindow;

namespace {

// The file without bytes 14 to 20 of its header, the date of the save.
QByteArray WithoutDate(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    QByteArray bytes = file.readAll();
    return bytes.left(14) + bytes.mid(21);
}

}  // namespace

class SpecialTypTest : public QObject {
    Q_OBJECT
private slots:
    void OkTellsWhatIsMissing() {
        ScriptedPrompts prompts;
        SpecialTypWindow window(prompts, [] { return 1u; });
        auto* ranges = Child<QComboBox>(&window, "cbbPlage");
        auto* ok = Child<QPushButton>(&window, "cmdOK");
        ok->click();  // no kind
        Child<QRadioButton>(&window, "optPOI")->setChecked(true);
        ok->click();  // no range
        QCOMPARE(prompts.Log.size(), std::size_t{2});
        QVERIFY(!window.Result().has_value());
        ranges->setCurrentIndex(0);
        ok->click();
        QCOMPARE(window.Result().value().PoiCount(), 256);
    }

    void WindowAndCommandLineWriteTheSameFile() {
        QTemporaryDir folder;
        const QString fromWindow = folder.filePath("window.typ"), fromCli = folder.filePath("cli.typ");
        ScriptedPrompts prompts;
        SpecialTypWindow window(prompts, [] { return 42u; });
        Child<QRadioButton>(&window, "optPolygone")->setChecked(true);
        Child<QComboBox>(&window, "cbbPlage")->setCurrentIndex(18);
        Child<QPushButton>(&window, "cmdOK")->click();
        QVERIFY(window.Result().has_value());
        mirvane::Document& doc = *window.Result();
        doc.Identity.Fid = 1;
        doc.Identity.ProductCode = 1;
        QVERIFY(!mirvane::SaveBinaryTyp(doc, fromWindow.toStdString()).has_value());

        QProcess cli;
        cli.start(MIRVANE_CLI, {"special", "--kind", "polygon", "--from", "0x110", "--to", "0x11f", "--seed", "42",
                                "-o", fromCli});
        QVERIFY(cli.waitForFinished(60000));
        QCOMPARE(cli.exitCode(), 0);
        const QByteArray windowBytes = WithoutDate(fromWindow);
        QVERIFY(windowBytes.size() > 1000);
        QCOMPARE(WithoutDate(fromCli), windowBytes);
    }
};

QTEST_MAIN(SpecialTypTest)
#include "test_special_typ.moc"
