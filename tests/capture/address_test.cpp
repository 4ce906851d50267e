// What people write for a source, what they are told, and what is guessed of a line.
#include "capture/address.h"

#include <gtest/gtest.h>

#include <sstream>

#include "capture/messages.h"
#include "capture/unprintable.h"

namespace conmuta::capture {
namespace {

TEST(SourceAddress, SerialPortsHaveSpeedFramingAndFlow) {
  const auto address = ReadAddress("serie:/dev/ttyUSB0,1200,7E1,rts");
  ASSERT_TRUE(address);
  EXPECT_EQ(address->kind, Address::Kind::kSerial);
  EXPECT_EQ(address->path, "/dev/ttyUSB0");
  EXPECT_EQ(address->serial, (SerialSettings{1200, 7, 'E', 1, Flow::kHardware}));
  EXPECT_EQ(ReadAddress("serie:COM3")->serial, (SerialSettings{9600, 8, 'N', 1, Flow::kNone}));
}

TEST(SourceAddress, HostsHavePortsAndAServerMayLackItsHost) {
  const auto client = ReadAddress("tcp:[fe80::1]:2300");
  ASSERT_TRUE(client);
  EXPECT_EQ(client->host, "fe80::1");
  EXPECT_EQ(client->port, 2300);
  EXPECT_EQ(ReadAddress("escucha:2300")->host, "");
  EXPECT_EQ(ReadAddress("escucha:0.0.0.0:2300")->host, "0.0.0.0");
}

TEST(SourceAddress, WhatIsNoneIsRefused) {
  for (const char* text : {"", "x", "tcp:", "tcp:2300", "tcp:a:", "tcp:a:70000", "tcp::1",
                           "serie:", "serie:COM3,0", "serie:COM3,9N1", "serie:COM3,8X1",
                           "serie:COM3,dtr", "escucha:", "escucha:x", "archivo:", "--"}) {
    EXPECT_FALSE(ReadAddress(text)) << text;
  }
}

TEST(SourceAddress, IsNamedWithItsLayout) {
  const auto source = ReadNamedSource("centro=panasonic-kx@archivo:C:\\smdr@1.txt");
  ASSERT_TRUE(source);
  EXPECT_EQ(source->name, "centro");
  EXPECT_EQ(source->layout, "panasonic-kx");
  EXPECT_EQ(source->address.path, "C:\\smdr@1.txt");
  for (const char* text : {"a", "a=b", "=b@-", "a=@-", "a=b@", "a@-"}) {
    EXPECT_FALSE(ReadNamedSource(text)) << text;
  }
}

TEST(Complaints, AreToldAtGrowingIntervalsAndTheirEndOnce) {
  std::ostringstream out;
  Messages messages(out);
  Complaint complaint(messages);
  complaint.Over("fin");
  for (int i = 0; i < 9; ++i) complaint.Tell("mal");
  complaint.Over("fin");
  complaint.Over("fin");
  complaint.Tell("mal");
  EXPECT_EQ(out.str(), "mal\nmal (van 2 veces)\nmal (van 4 veces)\nmal (van 8 veces)\nfin\nmal\n");
}

TEST(Complaints, NothingThatStrangersSentSteersATerminal) {
  std::ostringstream out;
  Messages(out).Tell("línea \x1B[2J\x07\x7F");
  EXPECT_EQ(out.str(), "línea \\x1B[2J\\x07\\x7F\n");
}

TEST(UnprintableBytes, AreSuspiciousWhereThereAreMany) {
  UnprintableGuess guess;
  guess.Take(std::string(1000, 'a') + "\r\n\f");
  EXPECT_EQ(guess.Suspicious(), 0);
  guess.Take(std::string(1000, '\xF0'));
  EXPECT_GE(guess.Suspicious(), 3);
  EXPECT_EQ(guess.Suspicious(), 0);
}

}  // namespace
}  // namespace conmuta::capture
