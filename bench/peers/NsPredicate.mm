#include "peers/NsPredicate.h"

#import <Foundation/Foundation.h>

namespace bench {

struct NSRECORDS::STATE {
    NSMutableArray* records;
    NSArray* kept;
};

NSRECORDS::NSRECORDS() : mState(new STATE{[[NSMutableArray alloc] init], nil}) {}

NSRECORDS::~NSRECORDS() {
    [mState->records release];
    [mState->kept release];
}

void NSRECORDS::Add(std::int32_t row, const char* client, const char* city, double amount, std::int32_t date,
                    std::int32_t quantity, bool isActive) {
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    const auto text = [](const char* bytes) {
        return [NSString stringWithCString:bytes encoding:NSWindowsCP1252StringEncoding];
    };
    NSDictionary* const record = [NSDictionary
        dictionaryWithObjectsAndKeys:[NSNumber numberWithInt:row], @"row", text(client), @"client", text(city), @"city",
                                     [NSNumber numberWithDouble:amount], @"amount", [NSNumber numberWithInt:date],
                                     @"date", [NSNumber numberWithInt:quantity], @"quantity",
                                     [NSNumber numberWithBool:isActive], @"active", nil];
    [mState->records addObject:record];
    [pool release];
}

std::size_t NSRECORDS::Filter(double limit) {
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    // GNUstep cannot evaluate "BETWEEN {10, 20}".
    NSPredicate* const predicate = [NSPredicate
        predicateWithFormat:@"(amount > %f AND client BEGINSWITH[c] 'A') OR (quantity >= 10 AND quantity <= 20)",
                            limit];
    [mState->kept release];
    mState->kept = [[mState->records filteredArrayUsingPredicate:predicate] retain];
    [pool release];
    return [mState->kept count];
}

std::int32_t NSRECORDS::RowAt(std::size_t place) const {
    return [[[mState->kept objectAtIndex:place] objectForKey:@"row"] intValue];
}

}  // namespace bench
