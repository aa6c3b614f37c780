#import "platform/macos/MacWeb.h"

#import "platform/macos/Conversions.h"

namespace {
constexpr NSUInteger longestAnswer = 1000000;
constexpr NSTimeInterval longestWait = 10;
} // namespace

/// Collects an answer, and aborts it when it becomes too long.
@interface TVWebAnswer : NSObject <NSURLSessionDataDelegate>
@property(nonatomic, readonly) NSMutableData* data;
@property(nonatomic, readonly) dispatch_semaphore_t ended;
@property(atomic) BOOL succeeded;
@end

@implementation TVWebAnswer

- (instancetype)init {
  if ((self = [super init])) {
    _data = [NSMutableData data];
    _ended = dispatch_semaphore_create(0);
  }
  return self;
}

- (void)URLSession:(NSURLSession*)session
          dataTask:(NSURLSessionDataTask*)task
    didReceiveData:(NSData*)data {
  if (self.data.length + data.length > longestAnswer)
    [task cancel];
  else
    [self.data appendData:data];
}

- (void)URLSession:(NSURLSession*)session
                    task:(NSURLSessionTask*)task
    didCompleteWithError:(NSError*)error {
  const bool isHttp = [task.response isKindOfClass:NSHTTPURLResponse.class];
  const NSInteger status = isHttp ? ((NSHTTPURLResponse*)task.response).statusCode : 0;
  self.succeeded = !error && status >= 200 && status < 300;
  dispatch_semaphore_signal(self.ended);
}

@end

namespace tavrel {

namespace {

/// Nil when the answer was not complete before the timeout.
NSData* dataFrom(NSURL* url) {
  TVWebAnswer* const answer = [[TVWebAnswer alloc] init];
  NSURLSession* const session =
      [NSURLSession sessionWithConfiguration:NSURLSessionConfiguration.ephemeralSessionConfiguration
                                    delegate:answer
                               delegateQueue:nil];
  [[session dataTaskWithURL:url] resume];
  const dispatch_time_t deadline =
      dispatch_time(DISPATCH_TIME_NOW, static_cast<std::int64_t>(longestWait * NSEC_PER_SEC));
  const bool inTime = dispatch_semaphore_wait(answer.ended, deadline) == 0;
  [session invalidateAndCancel];
  return inTime && answer.succeeded ? answer.data : nil;
}

} // namespace

std::optional<PropertyList> MacWeb::dictionaryAt(const std::string& url) {
  @autoreleasepool {
    NSURL* const address = nsUrl(url);
    if (![address.scheme.lowercaseString hasPrefix:@"http"] || address.host.length == 0)
      return std::nullopt;
    NSData* const data = dataFrom(address);
    id const list = data ? [NSPropertyListSerialization propertyListWithData:data
                                                                     options:0
                                                                      format:nil
                                                                       error:nil]
                         : nil;
    auto value = propertyListOf(list);
    return value && value->dictionary() ? std::move(value) : std::nullopt;
  }
}

} // namespace tavrel
