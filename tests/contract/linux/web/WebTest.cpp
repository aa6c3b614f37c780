#include "contract/WebContract.h"

#include "contract/linux/web/WebServer.h"
#include "platform/linux/plists/PropertyListCodec.h"
#include "platform/linux/web/LinuxWeb.h"
#include "support/WaitFor.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTimer>

namespace tavrel {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string written(const PropertyList& list, PropertyListForm form) {
  const auto bytes = encodePropertyList(list, form);
  return {bytes->begin(), bytes->end()};
}

class LinuxWebWorld {
public:
  Web& web() { return web_; }
  std::string publish(const PropertyList& list) {
    server_.folder.write("published", written(list, PropertyListForm::xml));
    return server_.http("/published");
  }

private:
  WebServer server_;
  LinuxWeb web_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, WebContract, LinuxWebWorld);

/// What came of one address.
struct Outcome {
  std::optional<PropertyList> list;
  std::string said;
  qint64 milliseconds = 0;
};

class LinuxWebTest : public ::testing::Test {
protected:
  Outcome fetch(const std::string& url) {
    Outcome outcome;
    ::testing::internal::CaptureStderr();
    QElapsedTimer watch;
    watch.start();
    outcome.list = web.dictionaryAt(url);
    outcome.milliseconds = watch.elapsed();
    outcome.said = ::testing::internal::GetCapturedStderr();
    return outcome;
  }
  void refuses(const std::string& url, const std::string& why) {
    const Outcome outcome = fetch(url);
    EXPECT_FALSE(outcome.list) << url;
    EXPECT_THAT(outcome.said, AllOf(StartsWith("tavrel.web: " + url + ": "), HasSubstr(why)));
    EXPECT_EQ(std::count(outcome.said.begin(), outcome.said.end(), '\n'), 1) << outcome.said;
    EXPECT_LT(outcome.milliseconds, limits.time.count() + 2000) << url;
  }

  WebServer server{Certificate::ofItsOwn};
  WebLimits limits{.time = std::chrono::milliseconds(1500), .bytes = 1 << 20};
  LinuxWeb web{limits};
};

/// Believes the server's own certificate for as long as it lives.
class Trust {
public:
  explicit Trust(const WebServer& server) : before_(QSslConfiguration::defaultConfiguration()) {
    QSslConfiguration trusting = before_;
    trusting.addCaCertificates(QString::fromStdString(server.certificateFile()));
    QSslConfiguration::setDefaultConfiguration(trusting);
  }
  ~Trust() { QSslConfiguration::setDefaultConfiguration(before_); }
  Trust(const Trust&) = delete;
  Trust& operator=(const Trust&) = delete;

private:
  QSslConfiguration before_;
};

TEST_F(LinuxWebTest, AListIsFetchedWithoutAWarning) {
  const Outcome outcome = fetch(server.http("/list"));
  ASSERT_TRUE(outcome.list);
  EXPECT_EQ(*outcome.list->stringFor("word"), "there");
  EXPECT_EQ(outcome.said, "");
}

TEST_F(LinuxWebTest, TheBinaryFormIsReadToo) {
  const PropertyList list(PropertyList::Dictionary{{"a", "b"}});
  server.folder.write("binary", written(list, PropertyListForm::binary));
  EXPECT_EQ(fetch(server.http("/binary")).list, list);
}

TEST_F(LinuxWebTest, RedirectionsAreFollowed) {
  EXPECT_TRUE(fetch(server.http("/hop/3")).list);
}

TEST_F(LinuxWebTest, RedirectionsInACircleEnd) {
  refuses(server.http("/circle"), "redirect");
}

TEST_F(LinuxWebTest, AServerWithAValidCertificateIsTrusted) {
  const Trust trust(server);
  EXPECT_TRUE(fetch(server.https("/list")).list);
}

TEST_F(LinuxWebTest, AServerWithoutAValidCertificateGetsNoRequest) {
  refuses(server.https("/list"), "SSL handshake failed");
  EXPECT_EQ(server.folder.read("requests"), "");
}

TEST_F(LinuxWebTest, ARedirectionToHttpsIsFollowed) {
  const Trust trust(server);
  EXPECT_TRUE(fetch(server.http("/to/" + server.https("/list"))).list);
}

TEST_F(LinuxWebTest, ARedirectionFromHttpsToHttpIsNotFollowed) {
  const Trust trust(server);
  refuses(server.https("/to/" + server.http("/list")), "redirect");
  EXPECT_THAT(server.folder.read("requests"), EndsWith("/list\n"));
  EXPECT_THAT(server.folder.read("requests"), ::testing::Not(HasSubstr("\n/list")));
}

TEST_F(LinuxWebTest, ARedirectionToAFileIsNotFollowed) {
  server.folder.write("here", written(PropertyList::Dictionary{}, PropertyListForm::xml));
  refuses(server.http("/to/file://" + server.folder.path("here")), "");
}

TEST_F(LinuxWebTest, AServerThatNeverAnswersHitsTheTimeout) {
  refuses(server.http("/silent"), "does not come in time");
}

TEST_F(LinuxWebTest, AServerThatSendsByteByByteHitsTheTimeout) {
  refuses(server.http("/dripping"), "does not come in time");
}

TEST_F(LinuxWebTest, AnAnswerAnnouncedTooLongIsNotRead) {
  refuses(server.http("/announced"), "is too long");
}

TEST_F(LinuxWebTest, AnAnswerThatBecomesTooLongIsAborted) {
  const Outcome outcome = fetch(server.http("/endless"));
  EXPECT_FALSE(outcome.list);
  EXPECT_THAT(outcome.said, HasSubstr("is too long"));
  ASSERT_TRUE(waitFor([this] { return !server.folder.read("poured").empty(); }));
  EXPECT_LT(std::stol(server.folder.read("poured")), 64L << 20);
}

TEST_F(LinuxWebTest, AListJustAsLongAsIsAllowedIsRead) {
  std::string list = written(PropertyList::Dictionary{{"a", "b"}}, PropertyListForm::xml);
  list.resize(static_cast<std::size_t>(limits.bytes), '\n');
  server.folder.write("long", list);
  EXPECT_TRUE(fetch(server.http("/long")).list);
  server.folder.write("longer", list + "\n");
  refuses(server.http("/longer"), "is too long");
}

TEST_F(LinuxWebTest, APageIsNoList) {
  refuses(server.http("/page"), "");
}

TEST_F(LinuxWebTest, AListInAnErrorPageIsIgnored) {
  refuses(server.http("/missing"), "Not Found");
  refuses(server.http("/broken"), "Internal Server Error");
  refuses(server.http("/locked"), "");
}

TEST_F(LinuxWebTest, AnEmptyAnswerIsNoList) {
  refuses(server.http("/empty"), "");
}

TEST_F(LinuxWebTest, ATruncatedAnswerIsNoList) {
  refuses(server.http("/cut"), "");
}

TEST_F(LinuxWebTest, FilesAndJunkAreNoWebAddresses) {
  server.folder.write("here", written(PropertyList::Dictionary{}, PropertyListForm::xml));
  for (const std::string& junk : {"file://" + server.folder.path("here"), std::string(),
                                  std::string("\xff\xfe"), std::string("http://a b/c")})
    EXPECT_THAT(fetch(junk).said, HasSubstr("is no web address"));
}

TEST_F(LinuxWebTest, AServerThatIsNotThereIsReportedAtOnce) {
  const Outcome outcome = fetch("http://localhost:1/list");
  EXPECT_FALSE(outcome.list);
  EXPECT_THAT(outcome.said, HasSubstr("refused"));
  EXPECT_LT(outcome.milliseconds, 1000);
}

TEST_F(LinuxWebTest, NoEventOfTheCallingThreadRunsMeanwhile) {
  bool happened = false;
  QTimer::singleShot(0, [&happened] { happened = true; });
  EXPECT_TRUE(fetch(server.http("/list")).list);
  EXPECT_FALSE(fetch(server.http("/silent")).list);
  EXPECT_FALSE(happened);
  EXPECT_TRUE(waitFor([&happened] { return happened; }, [] { QCoreApplication::processEvents(); }));
}

} // namespace
} // namespace tavrel
