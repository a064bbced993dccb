// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/Pasteboard.h"

namespace platform {

/// Where the session has no clipboard that we can use: always empty, and nothing can be put on it.
class NullPasteboard : public Pasteboard
{
public:
    explicit NullPasteboard(const QString &reason)
        : m_reason(reason)
    {
    }

    QString backendId() const override { return QStringLiteral("null"); }
    Availability availability() const override { return {false, m_reason}; }
    qint64 changeCount() const override { return 0; }
    std::optional<QByteArray> string() const override { return std::nullopt; }
    void clearContents() override {}
    bool setString(const QByteArray &) override { return false; }
    void offerAsPrimary() override {}
    void adoptPrimary() override {}
    void handOver() override {}

private:
    QString m_reason;
};

} // namespace platform
