// Element converters of addresses, recipients, destinations and address
// bindings, for the two-pass scanners and the array scanners: each reads
// the text of one element and returns 0 or a negative code.
#ifndef BACFMT_CONSTRUCTED_RECIPIENTS_H
#define BACFMT_CONSTRUCTED_RECIPIENTS_H

#include <cstddef>
#include <cstdint>

#include <bacfmt/contents.h>

namespace bacfmt {

// "0x" (or X'') and pairs of hexadecimal digits, at most `room` octets:
// 0, or -2 for an odd number of digits, a bad digit or too many octets.
int ReadOctetField(char *text, uint8_t *octets, size_t room, uint8_t &length);
// "network,0xMAC".
int ReadAddress(char *text, BACnetAddress &address);
// "[0] (type,instance)" or "[1] (network,0xMAC)".
int ReadRecipient(char *text, BACnetRecipient &recipient);
// "(days),from,to,recipient,process,confirmed,(transitions)".
int ReadDestination(char *text, BACnetDestination &destination);
// "(type,instance),(network,0xMAC)".
int ReadAddressBinding(char *text, BACnetAddressBinding &binding);

// Subscriptions: "[0] real" or "[1] NULL"; "[0] process" or "[1] NULL";
// the fields of a COV subscription and of an event notification
// subscription.
int ReadClientCov(char *text, BACnetClientCov &value);
int ReadProcessIdSelection(char *text, BACnetProcessIdSelection &value);
int ReadCovSubscription(char *const (&part)[6], BACnetCovSubscription &value);
int ReadEventNotificationSubscription(char *const (&part)[4], BACnetEventNotificationSubscription &value);

}  // namespace bacfmt

#endif  // BACFMT_CONSTRUCTED_RECIPIENTS_H
