#include "mask.h"

#include <algorithm>
#include <cstring>

Mask::Mask(QSize size) : m_size(size), m_bits(size_t(size.width() * size.height()), 0) {}

bool Mask::at(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_size.width() || y >= m_size.height())
        return false;
    return m_bits[size_t(y * m_size.width() + x)] != 0;
}

void Mask::set(int x, int y, bool on)
{
    if (x < 0 || y < 0 || x >= m_size.width() || y >= m_size.height())
        return;
    m_bits[size_t(y * m_size.width() + x)] = on ? 1 : 0;
}

void Mask::span(int y, int x0, int x1)
{
    for (int x = x0; x <= x1; ++x)
        set(x, y);
}

void Mask::rect(int x, int y, int width, int height)
{
    for (int row = y; row < y + height; ++row)
        span(row, x, x + width - 1);
}

void Mask::rows(int x, int y, std::initializer_list<const char*> lines)
{
    int row = y;
    for (const char* line : lines) {
        const int length = int(std::strlen(line));
        for (int i = 0; i < length; ++i) {
            if (line[i] != '.')
                set(x + i, row);
        }
        ++row;
    }
}

void Mask::unite(const Mask& other)
{
    for (size_t i = 0; i < m_bits.size(); ++i)
        m_bits[i] = char(m_bits[i] | other.m_bits[i]);
}

void Mask::subtract(const Mask& other)
{
    for (size_t i = 0; i < m_bits.size(); ++i)
        m_bits[i] = char(m_bits[i] & ~other.m_bits[i] & 1);
}

void Mask::intersect(const Mask& other)
{
    for (size_t i = 0; i < m_bits.size(); ++i)
        m_bits[i] = char(m_bits[i] & other.m_bits[i]);
}

void Mask::clipRows(int y0, int y1)
{
    for (int y = 0; y < m_size.height(); ++y) {
        if (y < y0 || y > y1)
            std::fill_n(m_bits.begin() + y * m_size.width(), m_size.width(), char(0));
    }
}

bool Mask::isEmpty() const
{
    return std::none_of(m_bits.begin(), m_bits.end(), [](char bit) { return bit != 0; });
}
