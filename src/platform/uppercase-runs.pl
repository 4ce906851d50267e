#!/usr/bin/perl
# Usage: uppercase-runs.pl >uppercase_runs.inc
#
# Makes the table of upper case letters anew from Perl's own copy of the Unicode data. To be run when
# the table shall follow a later Unicode; a host's comparisons change with it.
use strict;
use warnings;
use Unicode::UCD qw(prop_invmap);

my ($starts, $maps) = prop_invmap('Simple_Uppercase_Mapping');
my %upper;
for my $i (0 .. $#$starts) {
  next unless $maps->[$i];
  my $last = $i < $#$starts ? $starts->[$i + 1] - 1 : $starts->[$i];
  for my $code ($starts->[$i] .. $last) {
    my $target = $maps->[$i] + $code - $starts->[$i];
    $upper{$code} = $target - $code if $code <= 0xFFFF && $target <= 0xFFFF && $target != $code;
  }
}

# The longest runs of equal distance whose members follow each other in steps of 1 or 2.
my @runs;
for my $code (sort { $a <=> $b } keys %upper) {
  my $run = $runs[-1];
  if ($run && $run->{distance} == $upper{$code}) {
    my $step = $code - $run->{last};
    if ($step <= 2 && ($run->{first} == $run->{last} || $run->{step} == $step)) {
      @$run{'last', 'step'} = ($code, $step);
      next;
    }
  }
  push @runs, {first => $code, last => $code, distance => $upper{$code}, step => 1};
}

print "// First and last code unit of a run, distance to the upper case, step between members.\n";
print "// Derived from the Unicode simple upper-case mappings (basic plane only), ascending, by\n";
print "// uppercase-runs.pl.\n";
printf "    {0x%04X, 0x%04X, %d, %d},\n", @$_{qw(first last distance step)} for @runs;
