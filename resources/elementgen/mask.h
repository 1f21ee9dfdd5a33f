#pragma once

#include <QSize>

#include <initializer_list>
#include <vector>

// The pixels one part of a sprite covers, on the grid of its frame. A part is drawn
// as a mask first so that its outline and its shading follow from its shape alone.
class Mask
{
public:
    explicit Mask(QSize size);

    QSize size() const { return m_size; }
    // False outside the frame, so that shapes may be given partly off it.
    bool at(int x, int y) const;
    void set(int x, int y, bool on = true);
    // Inclusive at both ends.
    void span(int y, int x0, int x1);
    void rect(int x, int y, int width, int height);
    // Pixel rows written as text from (x, y): '.' leaves a pixel out, anything else
    // puts it in.
    void rows(int x, int y, std::initializer_list<const char*> lines);
    void unite(const Mask& other);
    void subtract(const Mask& other);
    void intersect(const Mask& other);
    // Keeps only the rows from y0 to y1 inclusive.
    void clipRows(int y0, int y1);
    bool isEmpty() const;

private:
    QSize m_size;
    std::vector<char> m_bits;
};
