// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QWidget>

#include <memory>

/// The small application-wide object that holds a window for views that need one. The window goes
/// with the object. Main thread only.
class AppState : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    std::unique_ptr<QWidget> window;
};
