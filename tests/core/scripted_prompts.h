// UserPrompts answered by the test: questions get the queued answers (No when
// none is left), messages and questions are recorded.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "models/shell/user_prompts.h"

struct ScriptedPrompts : mirvane::UserPrompts {
    struct Shown {
        std::string Kind, Title, Text;
    };
    std::deque<bool> Answers;
    std::deque<std::optional<std::string>> Paths;
    std::vector<Shown> Log;

    bool AskYesNo(const std::string& title, const std::string& text, bool) override {
        Log.push_back({"ask", title, text});
        if (Answers.empty()) return false;
        const bool answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
    void Inform(const std::string& title, const std::string& text) override { Log.push_back({"inform", title, text}); }
    void Warn(const std::string& title, const std::string& text) override { Log.push_back({"warn", title, text}); }
    std::optional<std::string> ChooseOpenPath(const std::string& title, const std::string& filter) override {
        Log.push_back({"open", title, filter});
        return NextPath();
    }
    std::optional<std::string> ChooseSavePath(const std::string& title, const std::string&,
                                              const std::string& filter) override {
        Log.push_back({"save", title, filter});
        return NextPath();
    }
    void ShowErrorList(const std::string& text) override { Log.push_back({"errors", "", text}); }

    // "title|text" of everything of one kind shown so far, in order.
    std::vector<std::string> Texts(const std::string& kind) const {
        std::vector<std::string> texts;
        for (const auto& shown : Log)
            if (shown.Kind == kind) texts.push_back(kind == "errors" ? shown.Text : shown.Title + "|" + shown.Text);
        return texts;
    }

private:
    std::optional<std::string> NextPath() {
        if (Paths.empty()) return std::nullopt;
        auto path = Paths.front();
        Paths.pop_front();
        return path;
    }
};
