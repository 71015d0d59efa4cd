#include "app/draworder/draw_order_window.h"

#include <QCheckBox>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QValidator>
#include <QVBoxLayout>

#include "app/common/named_widget.h"
#include "app/common/texts.h"
#include "app/preview/pixel_picture_image.h"
#include "document/encoding.h"
#include "models/shell/main_window_model.h"

namespace mirvane::app {

namespace {

constexpr int kRowsPerColumn = 25;
constexpr int kCellsPerRow = 6;  // preview, level, type, subtype, keep box, gap
constexpr int kGridPreviewSide = 20;
constexpr int kTreePreviewSide = 24;
constexpr int kLevelRole = Qt::UserRole;      // on a level header
constexpr int kRowRole = Qt::UserRole + 1;    // on a row of a level

// Keys that the field takes, up to `typed` characters typed; a longer value
// read from a file stays until the user shortens it.
class FieldValidator : public QValidator {
public:
    FieldValidator(QLineEdit* edit, bool hexadecimal, int typed)
        : QValidator(edit), edit_(edit), hexadecimal_(hexadecimal), typed_(typed) {}

    State validate(QString& input, int&) const override {
        for (QChar c : input)
            if (!(c.isDigit() || (hexadecimal_ && QStringLiteral("abcdefABCDEF").contains(c)))) return Invalid;
        if (input.size() > typed_ && input.size() > edit_->text().size()) return Invalid;
        return Acceptable;
    }

private:
    QLineEdit* edit_;
    bool hexadecimal_;
    int typed_;
};

QLineEdit* MakeField(QWidget* parent, const QString& name, bool hexadecimal, int typed, int width) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    edit->setValidator(new FieldValidator(edit, hexadecimal, typed));
    edit->setFixedWidth(width);
    edit->setAlignment(Qt::AlignCenter);
    return edit;
}

// "0x10f" or "0x10f  0x02", as the row says it.
QString RowCaption(const DrawOrderRow& row) {
    const int type = HexValue(row.Type), subType = HexValue(row.SubType);
    QString text = "0x" + Q(TypeText(type));
    if (type >= 256 || subType != 0) text += "  0x" + Q(SubTypeText(subType));
    return text;
}

}  // namespace

DrawOrderTree::DrawOrderTree(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setColumnCount(1);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setDragDropMode(QAbstractItemView::InternalMove);
    setDropIndicatorShown(false);  // paintEvent draws where the row would land
    setIconSize(QSize(kTreePreviewSide, kTreePreviewSide));
    setRootIsDecorated(false);
    setItemsExpandable(false);
}

DrawOrderDrop DrawOrderTree::DropAt(QPoint position) const {
    const QTreeWidgetItem* item = itemAt(position);
    if (!item) {
        const int levels = topLevelItemCount();
        const int last = levels > 0 ? topLevelItem(levels - 1)->data(0, kLevelRole).toInt() : 0;
        return {last + 1, true};
    }
    if (item->parent()) return {item->parent()->data(0, kLevelRole).toInt(), false};
    const QRect rect = visualItemRect(item);
    return {item->data(0, kLevelRole).toInt(), position.y() < rect.center().y()};
}

void DrawOrderTree::dragMoveEvent(QDragMoveEvent* event) {
    QTreeWidget::dragMoveEvent(event);  // scrolls near the edges
    if (event->source() != this) return event->ignore();
    shown_ = DropAt(event->position().toPoint());
    event->acceptProposedAction();
    viewport()->update();
}

void DrawOrderTree::dragLeaveEvent(QDragLeaveEvent* event) {
    QTreeWidget::dragLeaveEvent(event);
    shown_.reset();
    viewport()->update();
}

void DrawOrderTree::dropEvent(QDropEvent* event) {
    shown_.reset();
    viewport()->update();
    if (!DropCurrentRowAt(event->position().toPoint())) return event->ignore();
    // The view may take the dragged item away when the drag ends; the window
    // shows every level again from the model right after.
    event->acceptProposedAction();
}

bool DrawOrderTree::DropCurrentRowAt(QPoint position) {
    const QTreeWidgetItem* dragged = currentItem();
    if (!dragged || !dragged->parent()) return false;
    const int row = dragged->data(0, kRowRole).toInt();
    const DrawOrderDrop drop = DropAt(position);
    QTimer::singleShot(0, this, [this, row, drop] { emit RowDropped(row, drop); });
    return true;
}

void DrawOrderTree::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    if (!shown_) return;
    QRect target;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* level = topLevelItem(i);
        if (level->data(0, kLevelRole).toInt() != shown_->Level) continue;
        target = visualItemRect(level);
        if (!shown_->NewLevel && level->childCount() > 0)
            target = target.united(visualItemRect(level->child(level->childCount() - 1)));
    }
    QPainter painter(viewport());
    painter.setPen(QPen(palette().highlight().color(), 2));
    if (!shown_->NewLevel) {
        painter.drawRect(target.adjusted(1, 1, -2, -2));
        return;
    }
    // A gap: a line above the level, or below everything for a new last level.
    int y = target.isNull() ? 0 : target.top();
    if (target.isNull() && topLevelItemCount() > 0) {
        QTreeWidgetItem* last = topLevelItem(topLevelItemCount() - 1);
        y = visualItemRect(last->childCount() > 0 ? last->child(last->childCount() - 1) : last).bottom() + 2;
    }
    painter.drawLine(2, y + 1, viewport()->width() - 3, y + 1);
}

DrawOrderWindow::DrawOrderWindow(MainWindowModel& model, QWidget* parent)
    : QDialog(parent), model_(model), drawOrder_(model.Doc().DrawOrder) {
    setObjectName("frmDraworder");
    cmdAjouter_ = MakeButton(this, "cmdAjouter");
    cmdOK_ = MakeNamed<QPushButton>(this, "cmdOK");
    cmdAnnuler_ = MakeButton(this, "cmdAnnuler");
    cmdOK_->setDefault(true);  // Enter is OK, Escape Cancel

    auto* sides = new QHBoxLayout;
    sides->addWidget(BuildGrid(), 0, Qt::AlignTop);
    sides->addWidget(BuildLevels(), 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdAjouter_);
    buttons->addStretch();
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdAnnuler_);
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(sides, 1);
    whole->addLayout(buttons);

    for (std::size_t i = 0; i < drawOrder_.Rows().size(); ++i) AddRowWidgets();
    ShowRows();

    connect(cmdAjouter_, &QPushButton::clicked, this, [this] {
        drawOrder_.AddRow();
        AddRowWidgets();
        ShowRow(static_cast<int>(rows_.size()) - 1);
        FitGrid();
        Picture1_->ensureWidgetVisible(rows_.back().Level);
        rows_.back().Level->setFocus();
    });
    connect(cmdOK_, &QPushButton::clicked, this, &DrawOrderWindow::accept);
    connect(cmdAnnuler_, &QPushButton::clicked, this, &DrawOrderWindow::reject);
    RetranslateUi();
    FitGrid();
}

QWidget* DrawOrderWindow::BuildGrid() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    Picture1_ = MakeNamed<QScrollArea>(column, "Picture1");
    Picture1_->horizontalScrollBar()->setObjectName("HScroll1");
    Picture1_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Picture1_->setWidgetResizable(true);
    auto* content = new QWidget(Picture1_);
    grid_ = new QGridLayout(content);
    grid_->setHorizontalSpacing(6);
    grid_->setVerticalSpacing(2);
    grid_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    Picture1_->setWidget(content);
    chkAll_ = MakeNamed<QCheckBox>(content, "chkAll");
    chkAll_->setChecked(true);
    EnsureColumnHeaders(0);
    grid_->addWidget(chkAll_, 0, 4);

    auto* example = new QHBoxLayout;
    lblExemple1_ = MakeNamed<QLabel>(column, "lblExemple1");
    lblExemple2_ = MakeNamed<QLabel>(column, "lblExemple2");
    lblExemple3_ = MakeNamed<QLabel>(column, "lblExemple3");
    lblExemple4_ = MakeNamed<QLabel>(column, "lblExemple4");
    for (QLabel* label : {lblExemple1_, lblExemple2_, lblExemple3_, lblExemple4_}) example->addWidget(label);
    example->addStretch();
    layout->addWidget(Picture1_);
    layout->addLayout(example);

    connect(chkAll_, &QCheckBox::toggled, this, [this](bool kept) {
        drawOrder_.SetAllKept(kept);
        ShowRows();
    });
    return column;
}

QWidget* DrawOrderWindow::BuildLevels() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    treeNiveaux_ = new DrawOrderTree(column);
    treeNiveaux_->setObjectName("treeNiveaux");
    treeNiveaux_->setMinimumSize(260, 480);
    lblGlisser_ = MakeNamed<QLabel>(column, "lblGlisser");
    lblGlisser_->setWordWrap(true);
    // Room for three lines: a wrapped label does not make the window taller by itself.
    lblGlisser_->setMinimumHeight(3 * lblGlisser_->fontMetrics().lineSpacing() + 4);
    layout->addWidget(treeNiveaux_, 1);
    layout->addWidget(lblGlisser_);

    connect(treeNiveaux_, &DrawOrderTree::RowDropped, this, [this](int row, DrawOrderDrop drop) {
        if (drop.NewLevel) drawOrder_.MoveToNewLevel(row, drop.Level);
        else drawOrder_.MoveToLevel(row, drop.Level);
        ShowRows();
    });
    connect(treeNiveaux_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        if (!item->parent()) return;
        const int row = item->data(0, kRowRole).toInt();
        drawOrder_.Rows().at(row).Kept = item->checkState(0) == Qt::Checked;
        ShowRow(row);
    });
    return column;
}

void DrawOrderWindow::EnsureColumnHeaders(int column) {
    QWidget* content = Picture1_->widget();
    while (static_cast<int>(headers_.size()) <= column) {
        const bool first = headers_.empty();
        std::array<QLabel*, 3> labels{};
        const char* names[] = {"lblNiveaux", "lblTypes", "lblSubTypes"};
        for (int k = 0; k < 3; ++k) {
            labels[k] = first ? MakeNamed<QLabel>(content, names[k]) : new QLabel(content);
            labels[k]->setAlignment(Qt::AlignCenter);
            grid_->addWidget(labels[k], 0, static_cast<int>(headers_.size()) * kCellsPerRow + 1 + k);
        }
        grid_->setColumnMinimumWidth(static_cast<int>(headers_.size()) * kCellsPerRow + 5, 14);
        CaptionHeaders(labels);
        headers_.push_back(labels);
    }
}

void DrawOrderWindow::CaptionHeaders(const std::array<QLabel*, 3>& labels) {
    labels[0]->setText(EditCaption("Niveau", "lblniveaux"));
    labels[1]->setText(EditCaption("Type", "Type"));
    labels[2]->setText(EditCaption("SubtType", "SubType"));  // sic
}

void DrawOrderWindow::AddRowWidgets() {
    const int i = static_cast<int>(rows_.size());
    QWidget* content = Picture1_->widget();
    const int column = i / kRowsPerColumn, gridRow = i % kRowsPerColumn + 1, left = column * kCellsPerRow;
    EnsureColumnHeaders(column);
    RowWidgets w;
    w.Preview = MakeNamed<QLabel>(content, IndexedName("Apercu", i));
    w.Preview->setFixedSize(kGridPreviewSide, kGridPreviewSide);
    w.Level = MakeField(content, IndexedName("txtNiveau", i), false, 2, 36);
    w.Type = MakeField(content, IndexedName("txtTypes", i), true, 3, 46);
    w.SubType = MakeField(content, IndexedName("txtSubTypes", i), true, 2, 36);
    w.Kept = MakeNamed<QCheckBox>(content, IndexedName("Check1", i));
    w.Kept->setToolTip(EditCaption("Décocher pour enlever le polygone du draworder", "check1Tip"));
    grid_->addWidget(w.Preview, gridRow, left);
    grid_->addWidget(w.Level, gridRow, left + 1);
    grid_->addWidget(w.Type, gridRow, left + 2);
    grid_->addWidget(w.SubType, gridRow, left + 3);
    grid_->addWidget(w.Kept, gridRow, left + 4);
    for (QWidget* widget : {static_cast<QWidget*>(w.Preview), static_cast<QWidget*>(w.Level),
                            static_cast<QWidget*>(w.Type), static_cast<QWidget*>(w.SubType),
                            static_cast<QWidget*>(w.Kept)})
        widget->show();
    rows_.push_back(w);

    const auto edited = [this, i](std::string DrawOrderRow::*field) {
        return [this, i, field](const QString& text) { drawOrder_.Rows().at(i).*field = text.toStdString(); };
    };
    connect(w.Level, &QLineEdit::textEdited, this, edited(&DrawOrderRow::Level));
    connect(w.Type, &QLineEdit::textEdited, this, edited(&DrawOrderRow::Type));
    connect(w.SubType, &QLineEdit::textEdited, this, edited(&DrawOrderRow::SubType));
    connect(w.Level, &QLineEdit::editingFinished, this, [this, i] { FinishField(i, Field::Level); });
    connect(w.Type, &QLineEdit::editingFinished, this, [this, i] { FinishField(i, Field::Type); });
    connect(w.SubType, &QLineEdit::editingFinished, this, [this, i] { FinishField(i, Field::SubType); });
    connect(w.Kept, &QCheckBox::toggled, this, [this, i](bool kept) {
        drawOrder_.Rows().at(i).Kept = kept;
        ShowLevels();
    });

}

// Two columns of rows in view, more with HScroll1; as high as the rows, 25 at most.
void DrawOrderWindow::FitGrid() {
    const int columns = static_cast<int>(headers_.size());
    const QSize size = Picture1_->widget()->sizeHint();
    const int frames = 2 * Picture1_->frameWidth();
    const int shown = std::min(2, columns);
    Picture1_->setFixedWidth(shown * size.width() / columns + frames);
    const int bar = columns > shown ? Picture1_->horizontalScrollBar()->sizeHint().height() : 0;
    Picture1_->setFixedHeight(size.height() + bar + frames);
}

void DrawOrderWindow::FinishField(int row, Field field) {
    if (!isVisible()) return;  // the field lost the focus to Cancel closing the window
    RowWidgets& w = rows_.at(row);
    QLineEdit* edit = field == Field::Level ? w.Level : field == Field::Type ? w.Type : w.SubType;
    const std::string text = edit->text().toStdString();
    const std::optional<EditorMessage> message = field == Field::Level  ? CheckDrawOrderLevel(text)
                                                 : field == Field::Type ? CheckDrawOrderType(text)
                                                                        : CheckDrawOrderSubType(text);
    DrawOrderRow& r = drawOrder_.Rows().at(row);
    std::string& stored = field == Field::Level ? r.Level : field == Field::Type ? r.Type : r.SubType;
    if (message) {
        edit->clear();
        stored.clear();
        model_.Prompts().Inform(message->Title, message->Text);
        // Enter that left the field goes on to OK, which must wait for a corrected field.
        fieldRefused_ = true;
        QTimer::singleShot(0, this, [this] { fieldRefused_ = false; });
    } else {
        stored = text;
    }
    ShowRow(row);
    ShowLevels();
}

QPixmap DrawOrderWindow::PreviewOf(const DrawOrderRow& row, int side) const {
    const Document& doc = model_.Doc();
    const int type = HexValue(row.Type), subType = HexValue(row.SubType);
    for (int i = 0; i < doc.PolygonCount(); ++i) {
        const PolygonRecord& polygon = doc.Polygons[i];
        if (HexValue(polygon.Type) != type || HexValue(polygon.SubType) != subType) continue;
        const QImage image = DayPictureImage(PictureOfObject(doc, {ObjectKind::Polygon, i}));
        if (image.isNull()) return {};
        return QPixmap::fromImage(image.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    return {};
}

void DrawOrderWindow::ShowRow(int row) {
    const DrawOrderRow& r = drawOrder_.Rows().at(row);
    RowWidgets& w = rows_.at(row);
    const QSignalBlocker b1(w.Level), b2(w.Type), b3(w.SubType), b4(w.Kept);
    if (w.Level->text() != Q(r.Level)) w.Level->setText(Q(r.Level));
    if (w.Type->text() != Q(r.Type)) w.Type->setText(Q(r.Type));
    if (w.SubType->text() != Q(r.SubType)) w.SubType->setText(Q(r.SubType));
    w.Kept->setChecked(r.Kept);
    w.Preview->setPixmap(PreviewOf(r, kGridPreviewSide));
}

void DrawOrderWindow::ShowRows() {
    for (int i = 0; i < static_cast<int>(rows_.size()); ++i) ShowRow(i);
    ShowLevels();
}

void DrawOrderWindow::ShowLevels() {
    const QSignalBlocker keep(treeNiveaux_);
    treeNiveaux_->clear();
    const QString word = EditCaption("Niveau", "lblniveaux");
    for (const DrawOrderLevel& level : drawOrder_.Levels()) {
        auto* header = new QTreeWidgetItem(treeNiveaux_, QStringList(word + " " + QString::number(level.Level)));
        header->setData(0, kLevelRole, level.Level);
        header->setFlags(Qt::ItemIsEnabled | Qt::ItemIsDropEnabled);
        QFont bold = header->font(0);
        bold.setBold(true);
        header->setFont(0, bold);
        for (int row : level.Rows) {
            const DrawOrderRow& r = drawOrder_.Rows()[row];
            auto* item = new QTreeWidgetItem(header, QStringList(RowCaption(r)));
            item->setData(0, kRowRole, row);
            item->setIcon(0, QIcon(PreviewOf(r, kTreePreviewSide)));
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
                           Qt::ItemIsUserCheckable);
            item->setCheckState(0, r.Kept ? Qt::Checked : Qt::Unchecked);
        }
    }
    treeNiveaux_->expandAll();
}

void DrawOrderWindow::RetranslateUi() {
    setWindowTitle(EditCaption("Editer le draworder", "frmDraworderCaption"));
    for (const auto& labels : headers_) CaptionHeaders(labels);
    chkAll_->setToolTip(EditCaption("Cocher/décocher tous les polygones", "chkAllTip"));
    for (const RowWidgets& w : rows_)
        w.Kept->setToolTip(EditCaption("Décocher pour enlever le polygone du draworder", "check1Tip"));
    lblExemple1_->setText(EditCaption("Exemple :", "lblExemple1"));
    lblExemple2_->setText("3");
    lblExemple3_->setText("10f");
    lblExemple4_->setText("02");
    lblGlisser_->setText(EditCaption(
        "Glisser un polygone sur un autre niveau, ou entre deux niveaux pour en faire un nouveau niveau",
        "lblGlisser"));
    cmdAjouter_->setText(EditCaption("Ajouter", "cmdAjouter"));
    cmdOK_->setText(EditCaption("OK", "cmdOK"));
    cmdAnnuler_->setText(EditCaption("Annuler", "cmdAnnuler"));
    ShowLevels();
}

void DrawOrderWindow::accept() {
    if (fieldRefused_) return;
    model_.Doc().DrawOrder = drawOrder_.Entries();
    model_.MarkModified(Change::DrawOrder);
    QDialog::accept();
}

bool ShowDrawOrderWindow(MainWindowModel& model, QWidget* parent) {
    DrawOrderWindow window(model, parent);
    return window.exec() == QDialog::Accepted;
}

std::unique_ptr<QWidget> DrawOrderWindowForScreenshot(MainWindowModel& model) {
    return std::make_unique<DrawOrderWindow>(model);
}

}  // namespace mirvane::app
