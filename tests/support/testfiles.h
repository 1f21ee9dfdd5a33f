#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QImage>
#include <QString>
#include <QTemporaryDir>

#include <sys/resource.h>

// Small shared pieces of the test programs.

// The bytes of a file, or "<absent>" when it cannot be read.
QByteArray fileContents(const QString& path);
// Writes bytes to a file, replacing it; false when it cannot be written.
bool writeFile(const QString& path, const QByteArray& bytes);
// A Format_ARGB32 image of one pixel value.
QImage solidImage(QSize size, QRgb pixel);
// The bytes of an image as the program's PNG writer writes them.
QByteArray pngBytes(const QImage& image);
// Bytes given as hexadecimal digits, spaces allowed between them.
QByteArray hex(const char* text);

// Numbered folders under one temporary root, each named with an accent, so that every
// test function works in a folder of its own.
class TestFolders
{
public:
    explicit TestFolders(const QString& stem) : m_stem(stem) {}
    // Makes the next folder and returns its path.
    QString newFolder();
    QString root() const { return m_root.path(); }

private:
    QTemporaryDir m_root;
    QString m_stem;
    int m_count = 0;
};

// Limits every file this process writes to a number of bytes while it lives, as a
// full disk at that byte: writes past it fail (SIGXFSZ is ignored meanwhile) instead
// of ending the process. Works as root too, unlike permissions.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes);
    ~FileSizeLimit();

private:
    rlimit m_previous;
    void (*m_handler)(int);
};

// A device that takes the first bytes written to it up to its capacity and refuses
// the rest, as a disk that fills up in the middle of a file.
class FullDevice : public QIODevice
{
public:
    explicit FullDevice(qint64 capacity) : m_capacity(capacity)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }
    QByteArray written;

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        if (written.size() + size > m_capacity)
            return -1;
        written.append(data, size);
        return size;
    }

private:
    qint64 m_capacity;
};
