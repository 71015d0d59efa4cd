// The main window as the Qt tests drive it: a fresh document, prompts answered
// by the test and settings kept in memory.
#pragma once

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QObject>
#include <QString>
#include <QWidget>
#include <memory>

#include "child_widget.h"
#include "models/shell/main_window_model.h"
#include "scripted_prompts.h"
#include "app/shell/application.h"
#include "app/shell/main_window.h"

inline QString CorpusFile(const char* name) {
    return QString(MIRVANE_SHARED_DIR) + "/corpus/binary/" + name;
}

// The bundled sample: what a test needs when any TYP will do.
inline QString SampleFile() { return QString(MIRVANE_SOURCE_DIR) + "/samples/sample.typ"; }

// Saves a picture of `widget` under `fileName` in the folder that
// MIRVANE_SCREENSHOTS names, for a person to look at; nothing when it is unset.
inline void SavePicture(QWidget& widget, const QString& fileName) {
    const QString folder = qEnvironmentVariable("MIRVANE_SCREENSHOTS");
    if (folder.isEmpty()) return;
    QApplication::processEvents();
    widget.grab().save(QDir(folder).filePath(fileName));
}

// Skips the current test when the corpus file is not there.
#define REQUIRE_CORPUS_FILE(name)                                              \
    do {                                                                       \
        if (!QFileInfo::exists(CorpusFile(name)))                              \
            QSKIP(qPrintable("no corpus file " + CorpusFile(name)));           \
    } while (0)

class MainWindowTestBase : public QObject {
protected:
    std::unique_ptr<mirvane::Document> doc_;
    std::unique_ptr<ScriptedPrompts> prompts_;
    std::unique_ptr<mirvane::MemorySettingsStore> settings_;
    std::unique_ptr<mirvane::MainWindowModel> model_;
    std::unique_ptr<mirvane::app::MainWindow> window_;

    template <typename T>
    static T* Find(QObject* parent, const char* name) { return Child<T>(parent, QString::fromUtf8(name)); }
    template <typename T>
    T* Find(const char* name) { return Find<T>(window_.get(), name); }
    QAction* Action(const char* name) { return Find<QAction>(name); }

    // A fresh document, prompts and settings, and a shown window on them.
    void StartWindow() {
        doc_ = std::make_unique<mirvane::Document>();
        prompts_ = std::make_unique<ScriptedPrompts>();
        settings_ = std::make_unique<mirvane::MemorySettingsStore>();
        RebuildWindow();
    }
    // A new window on the same document, prompts and settings.
    void RebuildWindow() {
        window_.reset();
        model_ = std::make_unique<mirvane::MainWindowModel>(*doc_, *prompts_, *settings_, "v0.1.0");
        window_ = std::make_unique<mirvane::app::MainWindow>(*model_);
        mirvane::app::ConnectTextRoute(*window_, *model_);
        window_->show();
    }
    void StopWindow() {
        window_.reset();
        model_.reset();
    }
};
