// The settings go to an INI file under the application name, with the
// sections and keys that existing settings files use.
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "models/shell/recent_files.h"
#include "models/shell/startup.h"
#include "app/shell/qt_settings_store.h"

using namespace mirvane;

class SettingsStoreTest : public QObject {
    Q_OBJECT
    QTemporaryDir folder_;

private slots:
    void initTestCase() {
        QVERIFY(folder_.isValid());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_.path());
    }

    void firstRunWritesTheDefaultsToTheIniFile() {
        {
            app::QtSettingsStore store;
            QVERIFY(!store.Get(kSettingsSection, "Langue"));
            SettleLanguage(store);
            RecentFiles recent;
            recent.Add("/cartes/a.typ");
            recent.Add("/cartes/b.typ");
            recent.Store(store);
        }
        QSettings ini(folder_.filePath("Mirvane/Mirvane.ini"), QSettings::IniFormat);
        QCOMPARE(ini.value("Paramètres/Langue").toString(), QString("Francais"));
        QCOMPARE(ini.value("MRUFiles/1").toString(), QString("/cartes/a.typ"));

        app::QtSettingsStore again;
        again.Remove(kRecentFilesSection, "2");
        QVERIFY(!again.Get(kRecentFilesSection, "2"));
    }
};

QTEST_MAIN(SettingsStoreTest)
#include "test_settings_store.moc"
