// The commands of the menu bar.
#include "host/cli/io/output_file.h"
#include "host/desktop/dialogs/file_prompts.h"
#include "host/desktop/toolkit/wide_text.h"
#include "host/desktop/window/commands.h"
#include "host/desktop/window/main_window.h"

namespace standin::desktop {

namespace {

u16 DocumentAfter(u16 document) {
    const u16 next = App().NextDocument(document);
    return next != 0 ? next : App().NextDocument(0);
}

// A change of the host's own, which the user can undo.
template <typename Change>
void Edit(Text undoText, Change change) {
    Document* document = App().CurrentDocument();
    std::wstring text = WideText(undoText);
    std::erase(text, L'&');
    if (document != nullptr && document->BeginEdit(Utf16(text))) {
        change();
        document->EndEdit();
    }
}

}  // namespace

void MainWindow::CarryOut(u16 command) {
    m_lastRun.clear();
    if (command >= Command::kFirstDocument) {
        App().SetCurrentDocument(static_cast<u16>(command - Command::kFirstDocument));
    } else if (command >= Command::kFirstPluginItem && command <= Command::kLastPluginItem) {
        ChoosePluginItem(command - Command::kFirstPluginItem);
        return;
    } else if (!CarryOutFile(command) && !CarryOutEdit(command) && !CarryOutView(command) &&
               !CarryOutHost(command)) {
        return;
    }
    ShowDocument();
}

void MainWindow::ChoosePluginItem(int item) const {
    const Document* document = App().CurrentDocument();
    const EREGION whole = document != nullptr ? document->WholeRegion() : EREGION{};
    const auto selection = document != nullptr ? document->selection : std::nullopt;
    m_plugins.Invoke(m_window, item, selection ? &*selection : nullptr, whole);
}

bool MainWindow::CarryOutFile(u16 command) {
    switch (command) {
        case Command::kOpen:
            if (const auto file = AskForFileToOpen(m_window)) {
                Open(*file);
            }
            return true;
        case Command::kSave:
            Save(false);
            return true;
        case Command::kSaveAs:
            Save(true);
            return true;
        case Command::kClose:
            CloseDocument(App().CurrentNumber());
            return true;
        case Command::kExit:
            PostMessageW(m_window, WM_CLOSE, 0, 0);
            return true;
        case Command::kNextDocument:
            App().SetCurrentDocument(DocumentAfter(App().CurrentNumber()));
            return true;
        case Command::kAbout:
            About();
            return true;
        case Command::kReading:
            ShowMessage(WideText(Text::kReadingText), MB_ICONINFORMATION);
            return true;
        default:
            return false;
    }
}

bool MainWindow::CarryOutEdit(u16 command) {
    Document* document = App().CurrentDocument();
    if (document == nullptr) {
        return false;
    }
    switch (command) {
        case Command::kUndo:
            document->Undo();
            return true;
        case Command::kRedo:
            document->Redo();
            return true;
        case Command::kSelectAll:
            m_grid->SelectAll();
            return true;
        case Command::kSelectNone:
            m_grid->SelectNone();
            return true;
        case Command::kWidenToMeasures:
            m_grid->WidenToMeasures();
            return true;
        case Command::kWidenToStaves:
            m_grid->WidenToStaves();
            return true;
        default:
            return false;
    }
}

bool MainWindow::CarryOutView(u16 command) {
    const Document* document = App().CurrentDocument();
    switch (command) {
        case Command::kPageView:
        case Command::kScrollView:
        case Command::kStudioView:
            App().view = static_cast<u16>(command - Command::kPageView);
            return true;
        case Command::kFirstMeasure:
        case Command::kLastMeasure:
            if (document != nullptr && document->MeasureCount() > 0) {
                m_grid->ScrollToMeasure(
                    command == Command::kFirstMeasure ? 1 : document->MeasureCount());
            }
            return true;
        default:
            return false;
    }
}

bool MainWindow::CarryOutHost(u16 command) {
    Document* document = App().CurrentDocument();
    switch (command) {
        case Command::kClearLayer:
            Edit(Text::kEditClearLayer, [] { RunMenuCommand(Command::kClearLayer); });
            return true;
        case Command::kShowActiveLayerOnly:
            Edit(Text::kMenuActiveOnly, [] { RunMenuCommand(Command::kShowActiveLayerOnly); });
            return true;
        case Command::kRebeam:
            Edit(Text::kEditRebeam, [document] {
                if (document->selection) {
                    document->Rebeam(*document->selection);
                }
            });
            return true;
        case Command::kUpdateLayout:
            if (document != nullptr) {
                document->UpdateLayout();
            }
            return true;
        default:
            return RunMenuCommand(command);
    }
}

bool MainWindow::Open(const std::filesystem::path& file) {
    std::string problem;
    const u16 document = m_documents.Open(file, problem);
    if (document == 0) {
        ShowMessage(WideText(Text::kFileNotOpened, {cli::TextOf(file.filename()), problem}),
                    MB_ICONERROR);
        return false;
    }
    App().SetCurrentDocument(document);
    ShowDocument();
    if (const std::string warnings = m_documents.WarningsOf(document); !warnings.empty()) {
        ShowMessage(WideText(Text::kFileHasMistakes, {cli::TextOf(file.filename())}) +
                        WideFromUtf8(warnings),
                    MB_ICONWARNING);
    }
    return true;
}

// Files that the user dropped on the window.
void MainWindow::OpenDropped(HDROP files) {
    const UINT count = DragQueryFileW(files, 0xFFFFFFFF, nullptr, 0);
    std::vector<std::filesystem::path> paths;
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(files, i, nullptr, 0) + 1, L'\0');
        path.resize(DragQueryFileW(files, i, path.data(), static_cast<UINT>(path.size())));
        paths.emplace_back(path);
    }
    DragFinish(files);
    for (const std::filesystem::path& path : paths) {
        Open(path);
    }
}

void MainWindow::Save(bool askForName) {
    const u16 document = App().CurrentNumber();
    std::filesystem::path file = m_documents.FileOf(document);
    if (askForName) {
        const auto chosen = AskForFileToSave(m_window, file);
        if (!chosen) {
            return;
        }
        file = *chosen;
    }
    std::string problem;
    if (!m_documents.Save(document, file, problem)) {
        ShowMessage(WideText(Text::kFileNotSaved, {cli::TextOf(file.filename()), problem}),
                    MB_ICONERROR);
    }
}

bool MainWindow::CloseDocument(u16 document) {
    if (m_documents.IsChanged(document)) {
        App().SetCurrentDocument(document);
        ShowDocument();
        const std::wstring question =
            WideText(Text::kSaveChanges, {cli::TextOf(m_documents.FileOf(document).filename())});
        const int answer =
            MessageBoxW(m_window, question.c_str(), L"Finale", MB_YESNOCANCEL | MB_ICONQUESTION);
        if (answer == IDCANCEL) {
            return false;
        }
        if (answer == IDYES) {
            Save(false);
        }
    }
    m_documents.Close(document);
    return true;
}

bool MainWindow::CloseAll() {
    while (const u16 document = App().NextDocument(0)) {
        if (!CloseDocument(document)) {
            return false;
        }
        ShowDocument();
    }
    return true;
}

void MainWindow::About() const {
    ShowMessage(WideText(Text::kAboutText, {PLYWELD_VERSION}), MB_ICONINFORMATION);
}

}  // namespace standin::desktop
