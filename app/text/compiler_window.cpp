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
    setWindowTitle(Q(model_.Caption));
    auto* grid = new QGridLayout;
    txtChemincGPSmapper_ = AddPathRow(grid, 0, model_.lblcGPSmapperPath_Caption, "txtChemincGPSmapper",
                                      "cmdChemincGPSmapper", &CompilerWindow::BrowseTool);
    txtFichiertxt_ = AddPathRow(grid, 2, model_.lblTxtPath_Caption, "txtFichiertxt", "cmdFichiertxt",
                                &CompilerWindow::BrowseText);
    txtFichierTyp_ = AddPathRow(grid, 4, model_.lblTypPath_Caption, "txtFichierTyp", "cmdFichierTyp",
                                &CompilerWindow::BrowseTyp);

    auto* run = new QPushButton(Q(model_.Command1_Caption), this);
    run->setObjectName("Command1");
    run->setDefault(true);
    auto* cancel = new QPushButton(Q(model_.cmdAnnuler_Caption), this);
    cancel->setObjectName("cmdAnnuler");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(run);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch();
    layout->addLayout(buttons);
    resize(620, 240);

    connect(txtChemincGPSmapper_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txtChemincGPSmapper = text.toStdString(); });
    connect(txtFichiertxt_, &QLineEdit::textEdited, this, [this](const QString& text) {
        model_.txtFichiertxt = text.toStdString();
        model_.txtFichiertxt_Change();
        txtFichierTyp_->setText(Q(model_.txtFichierTyp));
    });
    connect(txtFichierTyp_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txtFichierTyp = text.toStdString(); });
    connect(run, &QPushButton::clicked, this, &CompilerWindow::Run);
    connect(cancel, &QPushButton::clicked, this, [this] {
        model_.cmdAnnuler_Click();
        reject();
    });

    const SettingKey stored = CompilerPathReadKey();
    model_.Form_Load(settings_.Get(stored.Section, stored.Key));
    ShowFields();
}

QLineEdit* CompilerWindow::AddPathRow(QGridLayout* grid, int row, const std::string& caption,
                                      const char* fieldName, const char* buttonName,
                                      void (CompilerWindow::*browse)()) {
    grid->addWidget(new QLabel(Q(caption), this), row, 0, 1, 2);
    auto* field = new QLineEdit(this);
    field->setObjectName(fieldName);
    field->setMinimumWidth(480);
    auto* button = new QPushButton("...", this);
    button->setObjectName(buttonName);
    button->setFixedWidth(button->fontMetrics().horizontalAdvance("....") + 16);
    grid->addWidget(field, row + 1, 0);
    grid->addWidget(button, row + 1, 1);
    connect(button, &QPushButton::clicked, this, browse);
    return field;
}

void CompilerWindow::BrowseTool() {
    if (auto write = model_.cmdChemincGPSmapper_Click()) settings_.Set(write->Where.Section, write->Where.Key, write->Value);
    ShowFields();
}

void CompilerWindow::BrowseText() {
    model_.cmdFichiertxt_Click();
    ShowFields();
}

void CompilerWindow::BrowseTyp() {
    model_.cmdFichierTyp_Click();
    ShowFields();
}

void CompilerWindow::Run() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (auto command = model_.Command1_Click()) Start(*command);
    QApplication::restoreOverrideCursor();
}

void CompilerWindow::ShowFields() {
    txtChemincGPSmapper_->setText(Q(model_.txtChemincGPSmapper));
    txtFichiertxt_->setText(Q(model_.txtFichiertxt));
    txtFichierTyp_->setText(Q(model_.txtFichierTyp));
}

}  // namespace mirvane::app
