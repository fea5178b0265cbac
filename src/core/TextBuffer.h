#pragma once

#include <QString>

#include <algorithm>
#include <array>
#include <cstring>

// One growing buffer of UTF-16 text with cheap appends: room is made once for a whole group of characters, and then
// each character is a store.
class TextBuffer
{
public:
    explicit TextBuffer(qsizetype expectedSize) : text_(int(std::max<qsizetype>(expectedSize, 64)), Qt::Uninitialized)
    {
        data_ = text_.data();
    }

    qsizetype size() const { return size_; }

    // Makes room for this many of the put… calls below.
    void reserve(qsizetype additional)
    {
        if (size_ + additional <= text_.size())
            return;
        text_.resize(decltype(text_.size())(std::max(2 * size_, size_ + additional)));
        data_ = text_.data();
    }

    void put(char c) { data_[size_++] = QLatin1Char(c); }

    void put(char c, int times)
    {
        for (; times > 0; --times)
            put(c);
    }

    // Of the array only so many characters count. The first are copied together, as most texts are no longer: there
    // must be room for eight.
    template<size_t Size>
    void put(const std::array<char16_t, Size> &text, int length)
    {
        constexpr int together = 8;
        static_assert(Size >= together);
        std::memcpy(static_cast<void *>(data_ + size_), text.data(), together * sizeof(char16_t));
        for (int i = together; i < length; ++i)
            data_[size_ + i] = QChar(text[size_t(i)]);
        size_ += length;
    }

    void append(QStringView text)
    {
        reserve(text.size());
        std::copy(text.begin(), text.end(), data_ + size_);
        size_ += text.size();
    }

    QString take()
    {
        text_.resize(decltype(text_.size())(size_));
        return std::move(text_);
    }

private:
    QString text_;
    QChar *data_ = nullptr;
    qsizetype size_ = 0;
};
