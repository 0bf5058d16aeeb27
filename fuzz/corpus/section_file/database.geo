; a user file with one system
[General]
Group count=1
System count=1
Ellipsoid count=0
Datumtransf count=1
Unit count=0
Projection count=1

[Groups Section]
1=Harbours

[Gp-Harbours]
1=Harbour Grid
System count=1

[Sys-Harbour Grid]
Datumtransform name=Harbour Shift
Ellipsoid name=Bessel 1841
Projection name=Harbour TM
Unit name=Meters
Geoid model use statu=1
Geoid model grid=C:\\models\\harbour.gtx
Post vertical slope X=-1.25e-06

[DatumTransform Section]
1=Harbour Shift

[Projections section]
1=Harbour TM

[Units section]
Meters=1.000000,m
