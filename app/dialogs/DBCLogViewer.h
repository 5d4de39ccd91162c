// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the log in the desktop's program for text files, or in a simple viewer if the desktop has
// no such program.
#pragma once

#include <QDialog>
#include <QStringDecoder>
#include <QTimer>

#include <functional>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

// path has to name an existing file. The function returns at once. onFailure is called later if
// neither the desktop nor the viewer could show the file.
void showLogFile(const QString& path, QWidget* parent, const std::function<void()>& onFailure);

class DBCLogViewer : public QDialog {
    Q_OBJECT
public:
    // Shows the last tailLength bytes of the file and whatever is appended later. If the file is
    // emptied or replaced, the viewer starts again with the new contents.
    DBCLogViewer(const QString& path, QWidget* parent);

    // Returns whether the viewer could read the file when it was created.
    bool isReadable() const { return _isReadable; }

    static constexpr qint64 tailLength = 0x200000; // bytes

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeControls();
    void makeKeys();
    bool readOn();
    void startAt(qint64 position);
    void append(const QByteArray& bytes);
    void findNext();

    QString _path;
    qint64 _position = -1; // of the next byte to read; -1 before the first reading
    QStringDecoder _decoder;
    bool _isReadable = false;
    QTimer _readTimer;
    QLabel* _notice; // owned by the dialog, like the following
    QPlainTextEdit* _text;
    QLineEdit* _wanted;
    QLabel* _findResult;
};
