#include "zarnic/platform/foundation/NSError.h"

#include <gtest/gtest.h>

using namespace zn;

TEST(NSError, SaysTheMostHelpfulSentence) {
    struct Case {
        Dictionary userInfo;
        const char* localized;
        const char* description;
    };
    const Case cases[] = {
        {{},
         "The operation couldn’t be completed. (D error -7.)",
         "Error Domain=D Code=-7 \"The operation couldn’t be completed. (D error -7.)\""},
        {{{NSDebugDescriptionErrorKey, "no comma"}},
         "The operation couldn’t be completed. (D error -7.)",
         "Error Domain=D Code=-7 \"no comma\" UserInfo={NSDebugDescription=no comma}"},
        {{{NSDebugDescriptionErrorKey, "no comma"}, {NSLocalizedDescriptionKey, "Broken."}},
         "Broken.",
         "Error Domain=D Code=-7 \"Broken.\" UserInfo={NSDebugDescription=no comma, "
         "NSLocalizedDescription=Broken.}"},
        // What is no text cannot be the sentence.
        {{{NSLocalizedDescriptionKey, 5}},
         "The operation couldn’t be completed. (D error -7.)",
         "Error Domain=D Code=-7 \"The operation couldn’t be completed. (D error -7.)\" "
         "UserInfo={NSLocalizedDescription=5}"},
    };
    for (const auto& [userInfo, localized, description] : cases) {
        const auto error = NSError::errorWithDomain("D", -7, userInfo);
        EXPECT_EQ(error->localizedDescription(), localized);
        EXPECT_EQ(error->description(), description);
        EXPECT_EQ(Value(error).description(), description);
    }
}

TEST(NSError, KeepsItsOwnCopyAndComparesByContent) {
    Dictionary userInfo{{"k", 1}};
    const auto error = NSError::errorWithDomain(NSCocoaErrorDomain, 3840, userInfo);
    userInfo.set("k", 2);
    EXPECT_EQ(error->userInfo()["k"], Value(1));
    const auto same = NSError::errorWithDomain(NSCocoaErrorDomain, 3840, {{"k", 1}});
    EXPECT_EQ(Value(error), Value(same));
    EXPECT_EQ(error->hash(), same->hash());
    for (const auto& other : {NSError::errorWithDomain(NSPOSIXErrorDomain, 3840, {{"k", 1}}),
                              NSError::errorWithDomain(NSCocoaErrorDomain, 3841, {{"k", 1}}),
                              NSError::errorWithDomain(NSCocoaErrorDomain, 3840, userInfo)})
        EXPECT_NE(Value(error), Value(other)) << other->description();
}
