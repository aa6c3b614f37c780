#import "platform/macos/AppleScriptSources.h"

#import "platform/macos/Conversions.h"

using SystemScript = NSAppleScript;
using SystemDescriptor = NSAppleEventDescriptor;

namespace tavrel {

namespace {

bool isText(DescType type) {
  return type == 'utxt' || type == 'ut16' || type == 'utf8' || type == 'TEXT' || type == 'itxt';
}

// Text comes as the units the port promises, whatever form the script kept it in.
Bytes itemData(SystemDescriptor* item) {
  SystemDescriptor* const text =
      isText(item.descriptorType) ? [item coerceToDescriptorType:'utxt'] : nil;
  return bytesOf(text ? text.data : item.data);
}

AppleEventDescriptor descriptorOf(SystemDescriptor* descriptor) {
  AppleEventDescriptor result{descriptor.descriptorType, {}};
  if (result.descriptorType == typeAEList)
    for (NSInteger index = 1; index <= descriptor.numberOfItems; ++index)
      result.items.push_back(itemData([descriptor descriptorAtIndex:index]));
  return result;
}

class LoadedAppleScript final : public NSAppleScript {
public:
  explicit LoadedAppleScript(SystemScript* script) : script_(script) {}

  std::optional<AppleEventDescriptor> execute() override {
    @autoreleasepool {
      NSDictionary* error = nil;
      SystemDescriptor* const result = [script_ executeAndReturnError:&error];
      return result ? std::optional(descriptorOf(result)) : std::nullopt;
    }
  }

private:
  SystemScript* script_;
};

} // namespace

std::unique_ptr<NSAppleScript> appleScriptFromFile(const std::string& path) {
  NSURL* const file = fileUrl(path);
  if (!file || ![NSFileManager.defaultManager fileExistsAtPath:file.path])
    return nullptr;
  NSDictionary* error = nil;
  SystemScript* const script = [[SystemScript alloc] initWithContentsOfURL:file error:&error];
  return script ? std::make_unique<LoadedAppleScript>(script) : nullptr;
}

std::optional<SourceRun> runAppleScriptSource(const std::string& source) {
  @autoreleasepool {
    SystemScript* const script = [[SystemScript alloc] initWithSource:nsString(source)];
    if (!script)
      return std::nullopt;
    NSDictionary* error = nil;
    if ([script executeAndReturnError:&error])
      return SourceRun{};
    return SourceRun{PropertyList(dictionaryOf(error))};
  }
}

} // namespace tavrel
