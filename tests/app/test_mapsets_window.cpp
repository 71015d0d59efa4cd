// frmMapsets driven by its widgets over a fake Wine prefix: the list, the
// buttons, and the main window's entries that open it and clear the caches.
#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <memory>

#include "app/mapsets/mapsets_window.h"
#include "app_test_support.h"
#include "fake_garmin_install.h"
#include "mapsets/info_file.h"
#include "mapsets/typ_ids.h"

using namespace mirvane;
using mirvane::testing::FakeGarminInstall;
using mirvane::testing::RecordingRegistryWriter;

class MapsetsWindowTest : public MainWindowTestBase {
    Q_OBJECT

    std::unique_ptr<FakeGarminInstall> install_;
    std::unique_ptr<app::MapsetsWindow> mapsets_;
    RecordingRegistryWriter* registry_ = nullptr;
    const QByteArray user_ = qgetenv("USER");

    void OpenWindow(bool openOnly = false) {
        MapsetEnvironment environment = WinePrefixEnvironment(install_->Prefix(), "tester", {});
        auto writer = std::make_unique<RecordingRegistryWriter>();
        registry_ = writer.get();
        environment.RegistryChanges = std::move(writer);
        mapsets_ = std::make_unique<app::MapsetsWindow>(
            std::move(environment), *prompts_,
            [this](const std::string& path) { return model_->OpenTyp(path); }, openOnly);
        mapsets_->show();
    }
    QTreeWidget* List(QWidget* window) { return Find<QTreeWidget>(window, "lstvMapsets"); }
    void SelectRow(QWidget* window, const QString& name) {
        const auto rows = List(window)->findItems(name, Qt::MatchExactly, 0);
        QCOMPARE(rows.size(), 1);
        List(window)->setCurrentItem(rows.front());
    }
    void Click(QWidget* window, const char* button) {
        QTest::mouseClick(Find<QPushButton>(window, button), Qt::LeftButton);
    }
    QString Column(QWidget* window, const QString& name, int column) {
        return List(window)->findItems(name, Qt::MatchExactly, 0).value(0)->text(column);
    }

private slots:
    void init() {
        install_ = std::make_unique<FakeGarminInstall>();
        StartWindow();
    }
    void cleanup() {
        mapsets_.reset();
        StopWindow();
        qunsetenv("WINEPREFIX");
        qputenv("USER", user_);
    }

    // Every mapset listed with its columns; associating a TYP writes the registry.
    void associatingWritesTheRegistryAndAdjustsTheTypWhenAsked() {
        OpenWindow();
        QCOMPARE(List(mapsets_.get())->topLevelItemCount(), 7);
        QStringList contours;
        for (int column = 0; column < 6; ++column) contours << Column(mapsets_.get(), "OSM Contours", column);
        QCOMPARE(contours.join('|'), QString("OSM Contours|1000|2|C:\\Garmin\\OSM Topo\\osm.typ|"
                                             "Families\\OSM Topo|C:\\Garmin\\OSM Topo\\Contours"));
        SavePicture(*mapsets_, "mapsets_window.png");
        SelectRow(mapsets_.get(), "OSM Contours");
        const auto typ = install_->Elsewhere() / "style.typ";
        prompts_->Paths = {typ.string()};
        prompts_->Answers = {true, false};  // adjust FID/PID, keep the caches
        Click(mapsets_.get(), "cmdOK");
        QCOMPARE(registry_->Changes.size(), std::size_t{1});
        QVERIFY(Column(mapsets_.get(), "OSM Contours", 3).startsWith("Z:\\"));
        QVERIFY(ReadTypIds(typ) == (TypIds{1000, 2}));
    }

    // From the main window: the prefix of $WINEPREFIX, only opening offered,
    // and the TYP loads into the document.
    void theFileMenuOpensAMapsetsTypInTheMainWindow() {
        qputenv("WINEPREFIX", QByteArray::fromStdString(install_->Prefix().string()));
        Action("mnuOuvrirTypMapset")->trigger();
        QPointer<QDialog> dialog = Find<QDialog>("frmMapsets");
        for (const char* button : {"cmdOK", "cmdSupprimer", "cmdEffacerCache"})
            QVERIFY(!Find<QPushButton>(dialog, button)->isVisible());
        SelectRow(dialog, "Pyrenees.gmap");
        Click(dialog, "cmdOuvrirTyp");
        QVERIFY(!dialog || !dialog->isVisible());
        QCOMPARE(QString::fromStdString(doc_->FilePath),
                 QString::fromStdString((install_->InstalledFolder("Pyrenees.gmap") / "pyr.typ").string()));
    }

    void theToolsMenuOpensTheWindowAndClearsTheCaches() {
        qputenv("WINEPREFIX", QByteArray::fromStdString(install_->Prefix().string()));
        qputenv("USER", "tester");
        Action("mnuInstallerTyp")->trigger();
        QVERIFY(Find<QPushButton>(Find<QDialog>("frmMapsets"), "cmdOK")->isVisible());
        Action("mnuEffacerCache")->trigger();
        QVERIFY(!std::filesystem::exists(install_->DriveC() / "users/tester/AppData/Local/GARMIN/BaseCamp/TileCache/c.tile"));
        QCOMPARE(install_->OutsideFiles(), (std::vector<std::string>{"keep.txt=keep", "keep2.txt=keep"}));
    }
};

QTEST_MAIN(MapsetsWindowTest)
#include "test_mapsets_window.moc"
