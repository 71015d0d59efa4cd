// Answers the main window's questions from a script and records what was asked.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "editors/user_prompts.h"

namespace mirvane::testing {

class ScriptedPrompts : public UserPrompts {
public:
    std::deque<bool> Answers;                       // for AskYesNo, in order; No when empty
    std::deque<std::optional<std::string>> Paths;   // for both file dialogs; cancel when empty
    std::vector<std::string> Questions, Informations, Warnings, ErrorLists;

    bool AskYesNo(const std::string& title, const std::string& text, bool) override {
        Questions.push_back(title + "|" + text);
        if (Answers.empty()) return false;
        bool answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
    void Inform(const std::string& title, const std::string& text) override {
        Informations.push_back(title + "|" + text);
    }
    void Warn(const std::string& title, const std::string& text) override { Warnings.push_back(title + "|" + text); }
    std::optional<std::string> ChooseOpenPath(const std::string&, const std::string&) override { return NextPath(); }
    std::optional<std::string> ChooseSavePath(const std::string&, const std::string&, const std::string&) override {
        return NextPath();
    }
    void ShowErrorList(const std::string& text) override { ErrorLists.push_back(text); }

private:
    std::optional<std::string> NextPath() {
        if (Paths.empty()) return std::nullopt;
        auto path = Paths.front();
        Paths.pop_front();
        return path;
    }
};

}  // namespace mirvane::testing
