// The questions of the main window as real dialogs.
#pragma once

#include <QWidget>
#include <QPointer>

#include "models/shell/user_prompts.h"

namespace mirvane::app {

class DialogPrompts : public UserPrompts {
public:
    void SetParent(QWidget* parent) { parent_ = parent; }

    bool AskYesNo(const std::string& title, const std::string& text, bool defaultNo) override;
    void Inform(const std::string& title, const std::string& text) override;
    void Warn(const std::string& title, const std::string& text) override;
    std::optional<std::string> ChooseOpenPath(const std::string& title, const std::string& filter) override;
    std::optional<std::string> ChooseSavePath(const std::string& title, const std::string& suggestedName,
                                              const std::string& filter) override;
    void ShowErrorList(const std::string& text) override;

private:
    QPointer<QWidget> parent_;
};

// Answers No to every question and writes messages to the error stream: for
// runs with no one at the screen (--screenshot).
class SilentPrompts : public UserPrompts {
public:
    bool AskYesNo(const std::string&, const std::string&, bool) override { return false; }
    void Inform(const std::string& title, const std::string& text) override;
    void Warn(const std::string& title, const std::string& text) override;
    std::optional<std::string> ChooseOpenPath(const std::string&, const std::string&) override { return {}; }
    std::optional<std::string> ChooseSavePath(const std::string&, const std::string&, const std::string&) override {
        return {};
    }
    void ShowErrorList(const std::string& text) override;
};

}  // namespace mirvane::app
