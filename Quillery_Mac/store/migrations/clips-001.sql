-- SPDX-License-Identifier: MIT
-- The content stands last: what is shown of a row is read without touching a long text.
CREATE TABLE Clip (
    pk INTEGER PRIMARY KEY AUTOINCREMENT,
    position INTEGER NOT NULL DEFAULT 0,
    id TEXT,
    device TEXT,
    content TEXT
);
