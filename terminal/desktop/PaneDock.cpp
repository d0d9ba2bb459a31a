#include "terminal/desktop/PaneDock.h"

#include "terminal/desktop/QtText.h"
#include "terminal/desktop/Theme.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace quorin {

namespace {

constexpr int ButtonSize = 20;
constexpr int TitleMargin = 4;

QString GroupText(Integer group) {
    if (group == NoGroup) return ToQt(InterfaceText(TerminalKey::Res_LinkGroupNone));
    return ToQt(FormatText(InterfaceText(TerminalKey::Res_LinkGroupNamed), {GroupID(group)}));
}

void ShowText(QWidget& widget, const QString& name) {
    if (widget.accessibleName() == name) return;
    widget.setAccessibleName(name);
    widget.setToolTip(name);
}

} // namespace

TPaneDock::TPaneDock(TPane* pane, const QString& code, QWidget* parent)
    : QDockWidget(parent), FPane(pane), FTitle(new QLabel(this)),
      FGroupButton(MakeButton(QStringLiteral("\u25CB"))),
      FFloatButton(MakeButton(QStringLiteral("\u25A1"))),
      FCloseButton(MakeButton(QStringLiteral("\u2715"))) {
    setObjectName(code);
    if (pane->Shown() != nullptr && pane->ItemView() != nullptr) {
        FActions = new TGridActions(*pane->ItemView(), *pane->Shown());
    }
    setWidget(pane);
    auto* bar = new QWidget(this);
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(TitleMargin, 0, 0, 0);
    layout->setSpacing(TitleMargin);
    layout->addWidget(FGroupButton);
    layout->addWidget(FTitle, 1);
    layout->addWidget(FFloatButton);
    layout->addWidget(FCloseButton);
    FTitle->setMinimumWidth(0);
    setTitleBarWidget(bar);
    connect(FGroupButton, &QToolButton::clicked, this,
            [this] { FPane->SetGroup((FPane->Group() + 1) % (GroupCount + 1)); });
    connect(FFloatButton, &QToolButton::clicked, this, [this] { setFloating(!isFloating()); });
    connect(FCloseButton, &QToolButton::clicked, this, &TPaneDock::CloseForm);
    connect(FPane, &TPane::GroupChanged, this, &TPaneDock::FollowGroup);
    FollowGroup();
}

TPaneDock::~TPaneDock() {
    delete FPane; // before the base takes it for a child that may outlive the services
}

QToolButton* TPaneDock::MakeButton(const QString& text) {
    auto* button = new QToolButton(this);
    button->setText(text);
    button->setFixedSize(ButtonSize, ButtonSize);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

void TPaneDock::FollowGroup() {
    const Integer group = FPane->Group();
    FGroupButton->setText(group == NoGroup ? QStringLiteral("\u25CB") : ToQt(GroupID(group)));
    FGroupButton->setStyleSheet(
        group == NoGroup
            ? QString()
            : QStringLiteral("QToolButton { background: %1; color: %2; font-weight: bold; "
                             "border-radius: 3px; }")
                  .arg(GroupColor(group).name(), SideTextColor().name()));
}

void TPaneDock::Follow() {
    if (FWantsToClose && !IsAsking()) {
        FWantsToClose = false;
        emit Ended(this);
        return;
    }
    if (isVisible()) FPane->Follow();
    if (FActions) FActions->Follow();
    const QString caption = FPane->Caption();
    if (windowTitle() != caption) {
        setWindowTitle(caption); // for the tabs and a floating window
        FTitle->setText(caption);
        FPane->setAccessibleName(caption);
    }
    ShowText(*FGroupButton, ToQt(InterfaceText(TerminalKey::Res_LinkGroup)) + QStringLiteral(": ") +
                                GroupText(FPane->Group()));
    ShowText(*FFloatButton, ToQt(InterfaceText(TerminalKey::Res_FormFloat)));
    ShowText(*FCloseButton, ToQt(InterfaceText(TerminalKey::Res_FormClose)));
}

// Whatever box is open may have been raised by this form, say by a field that was being left.
bool TPaneDock::IsAsking() const {
    return QApplication::activeModalWidget() != nullptr || FPane->IsAsking() ||
           (FActions && FActions->IsBusy());
}

void TPaneDock::CloseForm() {
    if (IsAsking()) {
        FWantsToClose = true;
    } else {
        emit Ended(this);
    }
}

void TPaneDock::closeEvent(QCloseEvent* event) {
    event->ignore();
    CloseForm();
}

} // namespace quorin
