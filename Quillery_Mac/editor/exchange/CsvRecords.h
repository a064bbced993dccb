// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <vector>

/// A row of a CSV file.
struct CsvRecord
{
    qsizetype position = 0; ///< where it begins in the file, in bytes
    std::vector<QByteArray> fields;
};

/// Takes a CSV file (RFC 4180) apart, row by row. Rows end with LF or CRLF; the last one may end
/// with the file. Lines with nothing in them are passed over.
class CsvRecords
{
public:
    /// `bytes` must outlive the object.
    explicit CsvRecords(QByteArrayView bytes);

    /// The next row; absent at the end of the file.
    /// Errors: Refused, with the line and the reason. No row can be read after it.
    platform::Result<std::optional<CsvRecord>> next();

private:
    bool isAtEnd() const { return m_at == m_bytes.size(); }
    /// The length of the line end that stands here; 0 if there is none.
    qsizetype lineEnd() const;
    platform::Result<CsvRecord> record();
    platform::Result<QByteArray> field();
    platform::Result<QByteArray> quotedField();
    platform::Result<QByteArray> plainField();

    QByteArrayView m_bytes;
    char m_delimiter;
    qsizetype m_at = 0;
};
