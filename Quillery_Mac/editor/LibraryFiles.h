// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <memory>

class LibraryState;
class QWidget;
class ImportUndo;

/// Takes a library in from a file and writes it to one, with the dialogs that this needs. Dialogs
/// belong to the window and do not block.
class LibraryFiles : public QObject
{
    Q_OBJECT

public:
    LibraryFiles(QWidget &window, LibraryState &state);
    ~LibraryFiles() override;

    void chooseImport();
    void chooseExport();
    /// Takes the file in, or says why not; nothing changes then.
    void importFile(const QString &file);
    void exportFile(const QString &file);

    bool canUndoImport() const { return m_undo != nullptr; }
    /// Takes what the last import brought out of the library again.
    void undoImport();

private:
    void tell(const QString &what, const QString &why);

    QWidget &m_window;
    LibraryState &m_state;
    std::unique_ptr<ImportUndo> m_undo;
};
