#include "app/text/compiler_window.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>

#include "app/common/texts.h"

namespace mirvane::app {

namespace {

bool StartDetached(const CompilerCommand& command) {
    QStringList arguments;
    for (const auto& argument : command.Arguments) arguments << Q(argument);
    return QProcess::startDetached(Q(command.Program), arguments);
}

}  // namespace

CompilerWindow::CompilerWindow(SettingsStore& settings, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), Start(StartDetached), settings_(settings), model_(prompts) {
    setObjectName("frmCompiler");
    auto* grid = new QGridLayout;
    tool_ = AddPathRow(grid, 0, "lblcGPSmapperPath", "txtChemincGPSmapper", "cmdChemincGPSmapper",
                       &CompilerWindow::BrowseTool);
    text_ = AddPathRow(grid, 2, "lblTxtPath", "txtFichiertxt", "cmdFichiertxt", &CompilerWindow::BrowseText);
    typ_ = AddPathRow(grid, 4, "lblTypPath", "txtFichierTyp", "cmdFichierTyp", &CompilerWindow::BrowseTyp);

    Command1_ = new QPushButton(this);
    Command1_->setObjectName("Command1");
    Command1_->setDefault(true);
    cmdAnnuler_ = new QPushButton(this);
    cmdAnnuler_->setObjectName("cmdAnnuler");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Command1_);
    buttons->addWidget(cmdAnnuler_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch();
    layout->addLayout(buttons);
    resize(620, 240);
    RetranslateUi();

    connect(tool_.Field, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.SetToolPath(text.toStdString()); });
    connect(text_.Field, &QLineEdit::textEdited, this, [this](const QString& text) {
        model_.SetTextPath(text.toStdString());
        typ_.Field->setText(Q(model_.TypPath()));
    });
    connect(typ_.Field, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.SetTypPath(text.toStdString()); });
    connect(Command1_, &QPushButton::clicked, this, &CompilerWindow::Run);
    connect(cmdAnnuler_, &QPushButton::clicked, this, &QDialog::reject);

    const SettingKey stored = CompilerPathReadKey();
    model_.LoadToolPath(settings_.Get(stored.Section, stored.Key));
    ShowFields();
}

void CompilerWindow::RetranslateUi() {
    setWindowTitle(Q(CompilerWindowTitle()));
    tool_.Label->setText(Q(ToolFieldCaption()));
    text_.Label->setText(Q(TextFieldCaption()));
    typ_.Label->setText(Q(TypFieldCaption()));
    Command1_->setText(Tr("Compiler", "Compiler", "Command1"));
    cmdAnnuler_->setText(Tr("Compiler", "Annuler", "cmdAnnuler"));
}

CompilerWindow::PathRow CompilerWindow::AddPathRow(QGridLayout* grid, int row, const char* labelName,
                                                   const char* fieldName, const char* buttonName,
                                                   void (CompilerWindow::*browse)()) {
    auto* label = new QLabel(this);
    label->setObjectName(labelName);
    grid->addWidget(label, row, 0, 1, 2);
    auto* field = new QLineEdit(this);
    field->setObjectName(fieldName);
    field->setMinimumWidth(480);
    auto* button = new QPushButton("...", this);
    button->setObjectName(buttonName);
    button->setFixedWidth(button->fontMetrics().horizontalAdvance("....") + 16);
    grid->addWidget(field, row + 1, 0);
    grid->addWidget(button, row + 1, 1);
    connect(button, &QPushButton::clicked, this, browse);
    return {label, field};
}

void CompilerWindow::BrowseTool() {
    if (auto write = model_.BrowseForTool()) settings_.Set(write->Where.Section, write->Where.Key, write->Value);
    ShowFields();
}

void CompilerWindow::BrowseText() {
    model_.BrowseForText();
    ShowFields();
}

void CompilerWindow::BrowseTyp() {
    model_.BrowseForTyp();
    ShowFields();
}

void CompilerWindow::Run() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (auto command = model_.Compile()) Start(*command);
    QApplication::restoreOverrideCursor();
}

void CompilerWindow::ShowFields() {
    tool_.Field->setText(Q(model_.ToolPath()));
    text_.Field->setText(Q(model_.TextPath()));
    typ_.Field->setText(Q(model_.TypPath()));
}

}  // namespace mirvane::app
