// SPDX-License-Identifier: MIT
#include "platform/pasteboard/SelectionAtoms.h"

#include "platform/x11/X11Connection.h"

#include <QByteArray>

namespace platform {

namespace {

xcb_intern_atom_cookie_t ask(xcb_connection_t *connection, const QByteArray &name)
{
    return xcb_intern_atom(connection, 0, static_cast<quint16>(name.size()), name.constData());
}

xcb_atom_t answer(xcb_connection_t *connection, xcb_intern_atom_cookie_t cookie)
{
    const XcbPointer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

struct NamedAtom
{
    xcb_atom_t SelectionAtoms::*member;
    const char *name;
};

constexpr NamedAtom kNamedAtoms[] = {
    {&SelectionAtoms::clipboard, "CLIPBOARD"},
    {&SelectionAtoms::clipboardManager, "CLIPBOARD_MANAGER"},
    {&SelectionAtoms::manager, "MANAGER"},
    {&SelectionAtoms::targets, "TARGETS"},
    {&SelectionAtoms::multiple, "MULTIPLE"},
    {&SelectionAtoms::timestamp, "TIMESTAMP"},
    {&SelectionAtoms::saveTargets, "SAVE_TARGETS"},
    {&SelectionAtoms::atomPair, "ATOM_PAIR"},
    {&SelectionAtoms::incr, "INCR"},
    {&SelectionAtoms::null, "NULL"},
    {&SelectionAtoms::utf8String, "UTF8_STRING"},
    {&SelectionAtoms::text, "TEXT"},
    {&SelectionAtoms::compoundText, "COMPOUND_TEXT"},
    {&SelectionAtoms::plainText, "text/plain"},
    {&SelectionAtoms::plainTextUtf8, "text/plain;charset=utf-8"},
    {&SelectionAtoms::passwordManagerHint, "x-kde-passwordManagerHint"},
    {&SelectionAtoms::clock, "QUILLERY_CLOCK"},
    {&SelectionAtoms::saveList, "QUILLERY_SAVE_LIST"},
};

} // namespace

SelectionAtoms SelectionAtoms::intern(xcb_connection_t *connection)
{
    std::vector<xcb_intern_atom_cookie_t> named;
    for (const NamedAtom &atom : kNamedAtoms)
        named.push_back(ask(connection, atom.name));
    SelectionAtoms atoms{};
    std::vector<xcb_intern_atom_cookie_t> transfers;
    for (std::size_t i = 0; i < atoms.clipboardTransfers.size(); ++i) {
        const QByteArray number = QByteArray::number(int(i));
        transfers.push_back(ask(connection, "QUILLERY_TRANSFER_" + number));
        transfers.push_back(ask(connection, "QUILLERY_PRIMARY_TRANSFER_" + number));
    }

    for (std::size_t i = 0; i < named.size(); ++i)
        atoms.*kNamedAtoms[i].member = answer(connection, named[i]);
    for (std::size_t i = 0; i < atoms.clipboardTransfers.size(); ++i) {
        atoms.clipboardTransfers[i] = answer(connection, transfers[2 * i]);
        atoms.primaryTransfers[i] = answer(connection, transfers[2 * i + 1]);
    }
    return atoms;
}

const SelectionAtoms::TransferProperties &SelectionAtoms::transfersOf(xcb_atom_t selection) const
{
    return selection == XCB_ATOM_PRIMARY ? primaryTransfers : clipboardTransfers;
}

std::vector<xcb_atom_t> SelectionAtoms::textTargets() const
{
    return {utf8String, plainTextUtf8, XCB_ATOM_STRING, compoundText, plainText, text};
}

} // namespace platform
