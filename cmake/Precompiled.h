// SPDX-License-Identifier: MIT
// Only headers that never change and that most files use. Every file still includes what it
// needs: the static checks read the files without this header.
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QProperty>
#include <QString>
#include <QTimer>
#include <QUuid>
#include <QVariant>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>
