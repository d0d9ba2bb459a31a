// The menu bar, made anew for each language.

#include "terminal/desktop/KeysDialog.h"
#include "terminal/desktop/MainWindow.h"
#include "terminal/desktop/PaneKinds.h"
#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenuBar>

#include <iterator>

namespace quorin {

namespace {

QString Text(StringView key) {
    return ToQt(InterfaceText(key));
}

// Of the kinds of forms, in the order of the menu.
constexpr const char* FormShortcuts[] = {"Ctrl+1", "Ctrl+2", "Ctrl+3",     "Ctrl+4",
                                         "Ctrl+5", "Ctrl+6", "Ctrl+7",     "Ctrl+8",
                                         "Ctrl+9", "Ctrl+0", "Ctrl+Alt+1", "Ctrl+Alt+2"};

struct TLanguageChoice {
    TAppLanguage Language;
    const char16_t* Name; // in itself
    const char* Shortcut;
};

constexpr TLanguageChoice Languages[] = {
    {TAppLanguage::English, u"English", "Ctrl+Alt+E"},
    {TAppLanguage::TraditionalChinese, u"\u7E41\u9AD4\u4E2D\u6587", "Ctrl+Alt+T"},
    {TAppLanguage::SimplifiedChinese, u"\u7B80\u4F53\u4E2D\u6587", "Ctrl+Alt+S"},
};

struct TThemeChoice {
    TTheme Theme;
    StringView NameKey;
    const char* Shortcut;
};

constexpr TThemeChoice Themes[] = {
    {TTheme::Light, TerminalKey::Res_ThemeLight, "Ctrl+Alt+L"},
    {TTheme::Dark, TerminalKey::Res_ThemeDark, "Ctrl+Alt+D"},
};

QAction* AddChoice(QMenu& menu, QActionGroup& group, const QString& text, const char* shortcut,
                   bool isChosen) {
    QAction* action = menu.addAction(text);
    action->setShortcut(QKeySequence(QLatin1String(shortcut)));
    action->setCheckable(true);
    action->setChecked(isChosen);
    group.addAction(action);
    return action;
}

} // namespace

void TMainWindow::MakeMenus() {
    qDeleteAll(menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    QMenu& forms = *menuBar()->addMenu(Text(TerminalKey::Res_MenuForms));
    const auto* shortcut = std::begin(FormShortcuts);
    for (const TPaneKindInfo& info : PaneKinds()) {
        QAction* action = forms.addAction(Text(info.NameKey));
        if (shortcut != std::end(FormShortcuts)) {
            action->setShortcut(QKeySequence(QLatin1String(*shortcut++)));
        }
        connect(action, &QAction::triggered, this, [this, kind = info.Kind] { Open(kind); });
    }
    forms.addSeparator();
    QAction* close = forms.addAction(Text(TerminalKey::Res_FormClose));
    close->setShortcut(QKeySequence(QStringLiteral("Ctrl+W")));
    connect(close, &QAction::triggered, this, &TMainWindow::CloseActiveForm);
    QAction* arrange = forms.addAction(Text(TerminalKey::Res_FormsArrange));
    arrange->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+0")));
    connect(arrange, &QAction::triggered, this, &TMainWindow::ArrangeAsAtFirst);
    QAction* keys = forms.addAction(Text(TerminalKey::Res_Keys));
    keys->setShortcuts(TKeysDialog::Shortcuts());
    connect(keys, &QAction::triggered, this, [this] { TKeysDialog::Open(*this); });
    QAction* quit = forms.addAction(Text(TerminalKey::Res_Quit));
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    connect(quit, &QAction::triggered, this, &QWidget::close);

    QMenu& view = *menuBar()->addMenu(Text(TerminalKey::Res_MenuView));
    QMenu& languages = *view.addMenu(Text(TerminalKey::Res_MenuLanguage));
    auto* languageGroup = new QActionGroup(&languages);
    for (const TLanguageChoice& choice : Languages) {
        QAction* action = AddChoice(languages, *languageGroup, QString::fromUtf16(choice.Name),
                                    choice.Shortcut, choice.Language == FShownLanguage);
        connect(action, &QAction::triggered, this,
                [this, language = choice.Language] { SwitchLanguage(language); });
    }
    QMenu& themes = *view.addMenu(Text(TerminalKey::Res_MenuTheme));
    auto* themeGroup = new QActionGroup(&themes);
    for (const TThemeChoice& choice : Themes) {
        QAction* action = AddChoice(themes, *themeGroup, Text(choice.NameKey), choice.Shortcut,
                                    choice.Theme == CurrentTheme());
        connect(action, &QAction::triggered, this,
                [this, theme = choice.Theme] { SwitchTheme(theme); });
    }
}

void TMainWindow::CloseActiveForm() {
    for (TPaneDock* dock : FDocks) {
        if (!dock->isAncestorOf(QApplication::focusWidget())) continue;
        dock->CloseForm();
        return;
    }
}

} // namespace quorin
