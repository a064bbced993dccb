// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LibraryFiles.h"

#include "Quillery_Mac/editor/LibraryState.h"
#include "Quillery_Mac/editor/exchange/LibraryFile.h"
#include "Quillery_Mac/editor/exchange/LibraryImport.h"
#include "Quillery_Mac/editor/exchange/LibraryWriter.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QStandardPaths>

namespace {

QString documentsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

} // namespace

LibraryFiles::LibraryFiles(QWidget &window, LibraryState &state)
    : QObject(&window)
    , m_window(window)
    , m_state(state)
{
}

LibraryFiles::~LibraryFiles() = default;

void LibraryFiles::chooseImport()
{
    auto *dialog = new QFileDialog(&m_window, tr("Import"), documentsFolder());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Libraries and tables (*.json *.csv)"), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, this, &LibraryFiles::importFile);
    dialog->open();
}

void LibraryFiles::chooseExport()
{
    auto *dialog = new QFileDialog(&m_window, tr("Export Library"), documentsFolder());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({tr("Quillery libraries (*.json)")});
    dialog->setDefaultSuffix(QStringLiteral("json"));
    //: The name of the file that an export suggests.
    dialog->selectFile(tr("Quillery Library.json"));
    connect(dialog, &QFileDialog::fileSelected, this, &LibraryFiles::exportFile);
    dialog->open();
}

void LibraryFiles::importFile(const QString &file)
{
    const auto library = readLibraryFile(file);
    if (!library) {
        tell(tr("The file was not imported. Nothing was changed."), library.error().text);
        return;
    }
    auto imported = importLibrary(m_state.viewContext, *library);
    if (!imported) {
        tell(tr("The file was not imported. Nothing was changed."), imported.error().text);
        return;
    }
    m_undo = std::make_unique<ImportUndo>(std::move(*imported));
    m_state.rebuild();
}

void LibraryFiles::exportFile(const QString &file)
{
    if (const auto written = exportLibrary(m_state.viewContext, file); !written)
        tell(tr("The library was not exported."), written.error().text);
}

void LibraryFiles::undoImport()
{
    if (!m_undo)
        return;
    const auto undo = std::move(m_undo);
    // What was not written stays changed, and the next save writes it.
    static_cast<void>(undo->undo(m_state.viewContext));
    m_state.rebuild();
}

void LibraryFiles::tell(const QString &what, const QString &why)
{
    auto *alert =
        new QMessageBox(QMessageBox::Warning, QString(), what, QMessageBox::Ok, &m_window);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setInformativeText(why);
    alert->setTextFormat(Qt::PlainText);
    alert->open();
}
