#include "app/shell/dialog_prompts.h"

#include <QFileDialog>
#include <QMessageBox>
#include <cstdio>

#include "app/shell/error_list_dialog.h"
#include "app/common/texts.h"

namespace mirvane::app {

namespace {
QString Plain(const std::string& text) { return Q(text).replace("\r\n", "\n"); }
}  // namespace

bool DialogPrompts::AskYesNo(const std::string& title, const std::string& text, bool defaultNo) {
    return QMessageBox::question(parent_, Plain(title), Plain(text), QMessageBox::Yes | QMessageBox::No,
                                 defaultNo ? QMessageBox::No : QMessageBox::Yes) == QMessageBox::Yes;
}

void DialogPrompts::Inform(const std::string& title, const std::string& text) {
    QMessageBox::information(parent_, Plain(title), Plain(text));
}

void DialogPrompts::Warn(const std::string& title, const std::string& text) {
    QMessageBox::critical(parent_, Plain(title), Plain(text));
}

std::optional<std::string> DialogPrompts::ChooseOpenPath(const std::string& title, const std::string& filter) {
    const QString path = QFileDialog::getOpenFileName(parent_, Q(title), QString(), Q(filter));
    if (path.isEmpty()) return std::nullopt;
    return path.toStdString();
}

std::optional<std::string> DialogPrompts::ChooseSavePath(const std::string& title, const std::string& suggestedName,
                                                         const std::string& filter) {
    // The model asks before overwriting, with its own words.
    QString path = QFileDialog::getSaveFileName(parent_, Q(title), Q(suggestedName), Q(filter), nullptr,
                                                QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty()) return std::nullopt;
    if (!path.endsWith(".typ", Qt::CaseInsensitive) && filter.find("*.typ") != std::string::npos) path += ".typ";
    return path.toStdString();
}

void DialogPrompts::ShowErrorList(const std::string& text) {
    ErrorListDialog dialog(Q(text), parent_);
    dialog.exec();
}

void SilentPrompts::Inform(const std::string& title, const std::string& text) {
    std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
}

void SilentPrompts::Warn(const std::string& title, const std::string& text) {
    std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
}

void SilentPrompts::ShowErrorList(const std::string& text) { std::fprintf(stderr, "%s\n", text.c_str()); }

}  // namespace mirvane::app
