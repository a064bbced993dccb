-- SPDX-License-Identifier: MIT
-- The content stands last: what is shown of a row is read without touching a long text.
CREATE TABLE Snippet (
    pk INTEGER PRIMARY KEY AUTOINCREMENT,
    "order" INTEGER NOT NULL DEFAULT 0,
    isFolder INTEGER NOT NULL DEFAULT 0,
    expanded INTEGER NOT NULL DEFAULT 0,
    id TEXT,
    timestamp REAL,
    inFolder TEXT,
    title TEXT,
    content TEXT
);
