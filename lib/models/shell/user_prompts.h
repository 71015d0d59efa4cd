// The questions and messages of the main window. The desktop program answers
// them with dialogs; tests answer them in code, so no test ever blocks.
#pragma once

#include <optional>
#include <string>

namespace mirvane {

class UserPrompts {
public:
    virtual ~UserPrompts() = default;
    // Yes/No question; true for Yes.
    virtual bool AskYesNo(const std::string& title, const std::string& text, bool defaultNo) = 0;
    // Information box (input errors).
    virtual void Inform(const std::string& title, const std::string& text) = 0;
    // Critical box (failures).
    virtual void Warn(const std::string& title, const std::string& text) = 0;
    // File dialogs; no value when the user cancels.
    virtual std::optional<std::string> ChooseOpenPath(const std::string& title, const std::string& filter) = 0;
    virtual std::optional<std::string> ChooseSavePath(const std::string& title, const std::string& suggestedName,
                                                      const std::string& filter) = 0;
    // The error list window (frmErreur), modal.
    virtual void ShowErrorList(const std::string& text) = 0;
};

}  // namespace mirvane
