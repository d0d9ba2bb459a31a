#include "terminal/desktop/AuditPane.h"

#include "embedded/DataError.h"
#include "platform/rtl/Text.h"
#include "terminal/desktop/MessagesPane.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/TableSize.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QFileDialog>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace quorin {

namespace {

constexpr int UsualRows = 14;
constexpr int Margin = 4;
constexpr const char* SuggestedName = "audit.csv";
constexpr const char* FileKinds = "CSV (*.csv)";

} // namespace

TAuditPane::TAuditPane(const TOrderDesk& desk, QWidget* parent)
    : TPane(TPaneKind::Audit, parent), FDesk(desk), FForm(desk),
      FGrid(new TGridSkin(FForm.View(), &FForm, this)), FSave(new QPushButton(this)),
      FResult(new QLabel(this)) {
    auto* line = new QHBoxLayout;
    line->setContentsMargins(Margin, 0, Margin, Margin);
    line->addWidget(FSave);
    line->addWidget(FResult, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FGrid);
    layout->addLayout(line);
    FSave->setAutoDefault(false);
    FResult->setTextFormat(Qt::PlainText);
    connect(FSave, &QPushButton::clicked, this, &TAuditPane::AskAndSave);
    Follow();
}

// The grid must be gone before the form that it shows.
TAuditPane::~TAuditPane() {
    delete FGrid;
}

void TAuditPane::Follow() {
    FollowTail(FForm, *FGrid);
    if (!FLanguage.TakeChange()) return;
    FGrid->setAccessibleName(Caption());
    FSave->setText(ToQt(InterfaceText(TerminalKey::Res_SaveAs)));
    FSave->setAccessibleName(FSave->text());
    FResult->clear(); // was in the other language
}

QString TAuditPane::Caption() {
    return ToQt(FForm.Title());
}

void TAuditPane::AskAndSave() {
    if (FIsAsking) return;
    FIsAsking = true;
    const QPointer<TAuditPane> alive(this);
    const QString file = QFileDialog::getSaveFileName(this, Caption(), QLatin1String(SuggestedName),
                                                      QLatin1String(FileKinds));
    if (!alive) return;
    FIsAsking = false;
    if (!file.isEmpty()) SaveAs(file.toStdString());
}

bool TAuditPane::SaveAs(const std::filesystem::path& path) {
    StringView pattern = TerminalKey::Res_Saved;
    try {
        FDesk.Audit().Save(path);
    } catch (const EDataError&) {
        pattern = TerminalKey::Res_CannotWrite;
    }
    FResult->setText(
        ToQt(FormatText(InterfaceText(pattern), {FromQt(QString::fromStdString(path.string()))})));
    FResult->setAccessibleName(FResult->text());
    return pattern == TerminalKey::Res_Saved;
}

QSize TAuditPane::sizeHint() const {
    return QWidget::sizeHint().expandedTo(TableSize(*FGrid, UsualRows));
}

} // namespace quorin
