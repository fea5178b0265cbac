#include "base/ByteReader.h"
#include "support/Rows.h"

#include <QBuffer>
#include <QTest>

#include <functional>

namespace {
using Read = std::function<double(ByteReader &in)>;

// Hands out at most 1000 bytes less than it promised.
class ShrinkingBuffer : public QBuffer
{
public:
    qint64 size() const override { return QBuffer::size() + 1000; }
};
} // namespace
Q_DECLARE_METATYPE(Read)

class TestByteReader : public QObject
{
    Q_OBJECT

private slots:
    void numbers_data()
    {
        const Rows<QByteArray, double, bool, quint64, Read> row("bytes", "value", "ended", "left", "read");
        row("u16", "\x12\x34\x56", 0x1234, false, 1, [](auto &in) { return in.u16(); });
        row("u24", "\x12\x34\x56", 0x123456, false, 0, [](auto &in) { return in.u24(); });
        row("u32", "\xFF\x34\x56\x78", 0xFF345678, false, 0, [](auto &in) { return in.u32(); });
        row("u64", QByteArray("\0\1\0\0\0\0\0\1", 8), 0x1000000000001, false, 0,
            [](auto &in) { return double(in.u64()); });
        row("float64", QByteArray("\xC0\x04\0\0\0\0\0\0", 8), -2.5, false, 0, [](auto &in) { return in.float64(); });
        row("little u16", "\x12\x34\x56", 0x3412, false, 1, [](auto &in) { return in.littleU16(); });
        row("little u32", "\x12\x34\x56\xFF", 0xFF563412, false, 0, [](auto &in) { return in.littleU32(); });
        row("variable length", "\x82\x80\x01z", 32769, false, 1, [](auto &in) { return in.variableLength(); });
        row("number of one byte", "\x7F", 127, false, 0, [](auto &in) { return in.variableLength(); });
        row("bits beyond 64 are lost", QByteArray(20, '\xFF') + '\x01', 1, false, 0,
            [](auto &in) { return in.variableLength() == (~quint64(0) << 7 | 1); });
        row("what is missing is zero", "\x12\x34", 0x123400, true, 0, [](auto &in) { return in.u24(); });
        row("endless number", "\x81\x82", (1 << 14 | 2 << 7), true, 0, [](auto &in) { return in.variableLength(); });
        row("peek", "\x12", 0x12, false, 1, [](auto &in) { return in.peek(); });
        row("string", "\2abc", 1, false, 1, [](auto &in) { return in.string() == "ab"; });
        row("long string", "\4abc", 1, true, 0, [](auto &in) { return in.string().empty() && in.u8() == 0; });
        row("skipped too far", "abc", 0, true, 0, [](auto &in) { return in.skip(~quint64(0)), in.u8(); });
    }
    void numbers()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(Read, read);
        QBuffer device(&bytes);
        QVERIFY(device.open(QIODevice::ReadOnly));
        ByteReader fromMemory(bytes);
        ByteReader fromDevice(device);
        for (auto *in : {&fromMemory, &fromDevice}) {
            QTEST(read(*in), "value");
            QTEST(in->ended(), "ended");
            QTEST(in->left(), "left");
            QCOMPARE(in->atEnd(), in->left() == 0);
        }
    }

    // Beyond what is fetched at first, and over the borders of later fetches.
    void longDevice()
    {
        QByteArray bytes("before");
        while (bytes.size() < 5 << 20)
            bytes += QByteArray::number(bytes.size()).rightJustified(9, '0') + QByteArray(7, 'x');
        ShrinkingBuffer device;
        device.setData(bytes);
        QVERIFY(device.open(QIODevice::ReadOnly));
        QVERIFY(device.seek(6));
        ByteReader in(device);
        for (int position = 6; position < bytes.size(); position += 16) {
            QCOMPARE(in.position(), position - 6);
            QCOMPARE(QByteArray::fromStdString(std::string(in.bytes(9))).toInt(), position);
            in.skip(7);
        }
        QVERIFY(!in.ended());
        QVERIFY(in.bytes(1).empty());
        QVERIFY(in.ended());
        QCOMPARE(in.takeRead(), bytes.mid(6));
        QCOMPARE(in.u8(), quint8(0));
    }
};

QTEST_APPLESS_MAIN(TestByteReader)
#include "test_byte_reader.moc"
