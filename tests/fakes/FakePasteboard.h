// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/Pasteboard.h"

#include <vector>

/// A pasteboard in memory. A test copies as another program with copyElsewhere() and reads what was
/// written here from `text`, `primary` and `writes`.
class FakePasteboard : public platform::Pasteboard
{
public:
    enum class Write { Cleared, StringSet, PrimaryOffered, HandedOver };

    QString backendId() const override { return QStringLiteral("fake"); }
    platform::Availability availability() const override { return {true, {}}; }

    qint64 changeCount() const override { return count; }
    std::optional<QByteArray> string() const override { return text; }

    void clearContents() override
    {
        writes.push_back(Write::Cleared);
        publish(std::nullopt);
    }

    bool setString(const QByteArray &utf8) override
    {
        if (isRefusing)
            return false;
        writes.push_back(Write::StringSet);
        text = utf8;
        emit changed();
        return true;
    }

    void offerAsPrimary() override
    {
        writes.push_back(Write::PrimaryOffered);
        primary = text;
    }

    void adoptPrimary() override { ++adoptions; }

    void handOver() override { writes.push_back(Write::HandedOver); }

    /// Another program copies: a text, or something without text when there is none.
    void copyElsewhere(const std::optional<QByteArray> &copied) { publish(copied); }

    qint64 count = 40;              ///< grows by one per copy, whoever made it
    std::optional<QByteArray> text; ///< what string() answers
    std::optional<QByteArray> primary;
    int adoptions = 0;         ///< calls of adoptPrimary()
    std::vector<Write> writes; ///< every call that wrote, in order
    bool isRefusing = false;   ///< setString() fails from now on

private:
    void publish(const std::optional<QByteArray> &copied)
    {
        text = copied;
        ++count;
        emit changed();
    }
};
