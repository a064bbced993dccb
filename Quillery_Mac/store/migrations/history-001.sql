-- SPDX-License-Identifier: MIT
-- What was saved, for those who carry it elsewhere. Part of every store's first version.

-- One row: the number of the last saved transaction, counted whether or not anybody reads them.
CREATE TABLE HistoryCounter (
    number INTEGER NOT NULL
);
INSERT INTO HistoryCounter (number) VALUES (0);

CREATE TABLE HistoryTransaction (
    number INTEGER PRIMARY KEY,
    author TEXT NOT NULL,
    time REAL NOT NULL
);

-- One row per kind of change and set of attributes, not per object: renumbering a whole list is one
-- row. kind: 1 inserted, 2 updated, 3 deleted. objects: pk values, joined by commas. attributes:
-- column names, joined by commas, of updates only. ids: of deletions only, the id of each object,
-- joined by commas, empty where it had none.
CREATE TABLE HistoryChange (
    number INTEGER NOT NULL REFERENCES HistoryTransaction (number),
    kind INTEGER NOT NULL,
    objects TEXT NOT NULL,
    attributes TEXT,
    ids TEXT
);
CREATE INDEX HistoryChangeByNumber ON HistoryChange (number);

-- Who reads the history, and the last transaction that they have dealt with.
CREATE TABLE HistoryConsumer (
    name TEXT PRIMARY KEY,
    lastRead INTEGER NOT NULL
) WITHOUT ROWID;
