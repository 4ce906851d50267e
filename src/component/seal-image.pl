#!/usr/bin/perl
# Usage: seal-image.pl IMAGE
#
# Takes the right to write from the sections of a Windows image that nobody writes to once it is
# loaded: resources and imports. (The system makes the import table writable itself while it fills
# it.) The linker has no option for that. The checksum is brought up to date.
use strict;
use warnings;

my ($path) = @ARGV;
die "Usage: seal-image.pl IMAGE\n" unless @ARGV == 1;
open my $file, '+<:raw', $path or die "$path: $!\n";
my $image = do { local $/; <$file> };

my $pe = unpack 'V', substr $image, 0x3C, 4;
die "$path: not a Windows image\n" unless substr($image, $pe, 4) eq "PE\0\0";
my $sections = unpack 'v', substr $image, $pe + 6, 2;
my $optional = unpack 'v', substr $image, $pe + 20, 2;

my %sealed = map { $_ => 1 } '.rsrc', '.idata';
use constant MAY_BE_WRITTEN => 0x80000000;
for my $i (0 .. $sections - 1) {
  my $header = $pe + 24 + $optional + 40 * $i;
  my $name = unpack 'Z8', substr $image, $header, 8;
  next unless delete $sealed{$name};
  my $flags = unpack 'V', substr $image, $header + 36, 4;
  substr $image, $header + 36, 4, pack 'V', $flags & ~MAY_BE_WRITTEN;
}
die "$path: no section ", join(', ', sort keys %sealed), "\n" if %sealed;

# The checksum: 16-bit words added with their carry, itself as 0, and the length.
my $checksum = $pe + 24 + 64;
substr $image, $checksum, 4, "\0\0\0\0";
my $sum = unpack '%64v*', $image . (length($image) % 2 ? "\0" : '');
$sum = ($sum & 0xFFFF) + ($sum >> 16) while $sum > 0xFFFF;
substr $image, $checksum, 4, pack 'V', $sum + length $image;

seek $file, 0, 0;
print {$file} $image;
close $file or die "$path: $!\n";
