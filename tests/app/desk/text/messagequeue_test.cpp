#include "app/desk/text/messagequeue.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <thread>
#include <vector>

namespace {

using app::desk::Message;
using app::desk::MessageQueue;
using app::desk::Tone;

class MessageQueueTest : public testing::Test {
protected:
    MessageQueueTest()
    {
        QObject::connect(&queue, &MessageQueue::arrived, &queue, [this](const QList<Message>& messages) {
            ++deliveries;
            arrived += messages;
        });
    }
    QString text() const
    {
        QString all;
        for (const Message& message : arrived)
            all += message.text;
        return all;
    }

    MessageQueue queue;
    QList<Message> arrived;
    int deliveries = 0;
};

TEST_F(MessageQueueTest, TheEventLoopGetsAllAtOnceInOrderAndByTone)
{
    queue.post(Tone::Plain, "a");
    queue.post(Tone::Plain, "b\n");
    queue.post(Tone::Error, "c");
    queue.post(Tone::Error, "");
    queue.post(Tone::Plain, "d");
    EXPECT_EQ(deliveries, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(deliveries, 1);
    ASSERT_EQ(arrived.size(), 3);
    EXPECT_EQ(arrived.at(0).text, "ab\n");
    EXPECT_EQ(arrived.at(1).tone, Tone::Error);
    EXPECT_EQ(arrived.at(1).text, "c");
    EXPECT_EQ(arrived.at(2).text, "d");
}

TEST_F(MessageQueueTest, DeliveringNowLeavesNothingForTheEventLoop)
{
    queue.post(Tone::Plain, "a");
    queue.deliver();
    EXPECT_EQ(text(), "a");
    QCoreApplication::processEvents();
    EXPECT_EQ(deliveries, 1);
    queue.post(Tone::Plain, "b");
    QCoreApplication::processEvents();
    EXPECT_EQ(text(), "ab");
}

TEST_F(MessageQueueTest, ThreadsPostWithoutLosingAnything)
{
    constexpr int threads = 4;
    constexpr int turns = 2'000;
    std::vector<std::thread> posting;
    for (int number = 0; number < threads; ++number) {
        posting.emplace_back([this, number] {
            for (int turn = 0; turn < turns; ++turn)
                queue.post(number % 2 ? Tone::Plain : Tone::Error, QString::number(number));
        });
    }
    for (std::thread& thread : posting)
        thread.join();
    QCoreApplication::processEvents();
    for (int number = 0; number < threads; ++number)
        EXPECT_EQ(text().count(QString::number(number)), turns);
}

TEST_F(MessageQueueTest, TooMuchLosesTheOldestAndSaysSo)
{
    const QString line = QString(999, u'x') + u'\n';
    for (qsizetype turn = 0; turn < 2 * MessageQueue::capacity / line.size(); ++turn)
        queue.post(Tone::Plain, line);
    queue.post(Tone::Plain, "the end");
    queue.deliver();
    EXPECT_EQ(arrived.first().text, "\n(What came before was too much to show.)\n");
    EXPECT_LE(text().size(), MessageQueue::capacity + arrived.first().text.size());
    EXPECT_GT(text().size(), MessageQueue::capacity / 2);
    EXPECT_TRUE(text().endsWith("the end"));
    arrived.clear();
    queue.post(Tone::Plain, QString(2 * MessageQueue::capacity, u'y'));
    queue.deliver();
    ASSERT_EQ(arrived.size(), 2);
    EXPECT_EQ(arrived.at(0).tone, Tone::Error);
    EXPECT_EQ(arrived.at(1).text.size(), MessageQueue::capacity);
}

} // namespace
