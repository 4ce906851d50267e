#!/usr/bin/perl
# Usage: describe-enumerators.pl IDL <LIBRARY >LIBRARY
#
# Gives the enumerators of a type library the help strings that the IDL has for them, which the IDL
# compiler itself does not take. Fails when one has none.
#
# A library is a header, a directory of segments, the segments, and a block of members for each
# type. A help string is an entry of the segment of strings, and a field that the record of the
# member has for it at its end.
use strict;
use warnings;

use constant {
    TYPE_SIZE => 0x64, TYPES => 0, NAMES => 7, STRINGS => 8, SEGMENTS => 15,
    PLAIN_RECORD => 20,    # bytes of the record of an enumerator without a help string
};

my %help;
{
    open my $idl, '<', $ARGV[0] or die "$ARGV[0]: $!\n";
    while (<$idl>) { $help{$2} = $1 if /HELP\("([^"]*)"\)\s*(\w+)\s*=/ }
}

binmode $_ for *STDIN, *STDOUT;
my $library = do { local $/; <STDIN> };
sub number { unpack 'l<', substr $library, $_[0], 4 }
sub put { substr($library, $_[0], 4) = pack 'l<', $_[1] }

my $types = number(0x20);
my $directory = 0x54 + 4 * $types;
sub segment { number($directory + 16 * $_[0]) }
sub name_at {
    my $entry = segment(NAMES) + $_[0];
    return substr $library, $entry + 12, number($entry + 8) & 0xff;
}

# The new entries of the segment of strings.
my $strings = segment(STRINGS);
my $strings_end = $strings + number($directory + 16 * STRINGS + 4);
my $added = '';
sub string_offset {
    my $text = pack('v', length $_[0]) . $_[0];
    $text .= 'W' x 4 if length $_[0] < 3;
    $text .= 'W' x (-length($text) % 4);
    my $offset = $strings_end - $strings + length $added;
    $added .= $text;
    return $offset;
}

# A block of members: the size of the records, the records; their identifiers, names and places.
sub describe {
    my ($block, $count) = @_;
    my $size = number($block);
    my $tables = $block + 4 + $size;
    my ($records, @places) = ('');
    for my $i (0 .. $count - 1) {
        my $place = number($tables + 8 * $count + 4 * $i);
        my $record = substr $library, $block + 4 + $place, unpack 'v', substr $library, $block + 4 + $place, 2;
        my $name = name_at(number($tables + 4 * $count + 4 * $i));
        die "$name: no help string\n" unless defined $help{$name};
        die "$name: a record of " . length($record) . " bytes\n" if length $record != PLAIN_RECORD;
        # No help context, then the help string.
        $record .= pack 'l<l<', 0, string_offset($help{$name});
        substr($record, 0, 2) = pack 'v', length $record;
        push @places, length $records;
        $records .= $record;
    }
    return pack('l<', length $records) . $records . substr($library, $tables, 8 * $count)
        . pack 'l<*', @places;
}

# The blocks stand behind the segments, in the order of the types.
my $next = my $blocks = number(segment(TYPES) + 4);
my @blocks;
for my $i (0 .. $types - 1) {
    my $type = segment(TYPES) + TYPE_SIZE * $i;
    my ($kind, $block) = (number($type) & 0xf, number($type + 4));
    die "a library of another make\n" if $block != $next;
    my $elements = number($type + 0x18);
    my $count = ($elements & 0xffff) + ($elements >> 16);
    my $length = $count ? 4 + number($block) + 12 * $count : 0;
    $next += $length;
    push @blocks, $kind == 0 ? describe($block, $count) : substr $library, $block, $length;
}
die "a library of another make\n" if $next != length $library;

for my $i (0 .. SEGMENTS - 1) {
    my $entry = $directory + 16 * $i;
    put($entry, number($entry) + length $added) if number($entry) >= $strings_end;
}
put($directory + 16 * STRINGS + 4, $strings_end - $strings + length $added);
my $position = $blocks + length $added;
for my $i (0 .. $types - 1) {
    put(segment(TYPES) + TYPE_SIZE * $i + 4, $position);
    $position += length $blocks[$i];
}
# The compiler notes when it ran, in words and as a number: the same sources give the same bytes.
$library =~ s/(Created by WIDL version \S+ at ).{24}(\nW*\x13\0)..../$1Thu Jan  1 00:00:00 1970$2\0\0\0\0/s
    or die "no time of making\n";
print substr($library, 0, $strings_end), $added,
    substr($library, $strings_end, $blocks - $strings_end), @blocks;
