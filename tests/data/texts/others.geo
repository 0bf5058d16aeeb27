; The other of two databases for the tests of the text descriptions: records under names that
; records.geo has too, with other values, and a system whose parts are all in that file.

[Groups Section]
1=Both
2=Abroad

[Gp-Both]
1=Shared name
System count=1

[Gp-Abroad]
1=Parts abroad
2=Parts at home
System count=2

[Sys-Shared name]
Datumtransform name=Shared datum
Unit name=Shared unit
Ellipsoid name=Shared ellipsoid
Projection name=Shared projection
System description=that of others.geo
Geoid model method=OSGM
Geoid model grid=others.gtx

[Sys-Parts abroad]
Datumtransform name=WGS84 to Bessel (H7)
Unit name=US Survey Feet
Ellipsoid name=Bessel 1841
Projection name=Hotine at home
System description=All but the projection lies in the other file
Post coorection statu=1
Post X coorection=7

[Sys-Parts at home]
Datumtransform name=Half here
Unit name=Home unit
Ellipsoid name=Home ellipsoid
Projection name=TM skewed

[Prj-Hotine at home]
Projection type=9
Projection method=Hotine Oblique Mercator(A)
Unit name=Home unit
LatOrigin=4
LonOrigin=115
FalseEasting=0
FalseNorthing=0
ScaleFactor=0.99984
InitialAzimuth=53.31580994722222
HotineGridSkew=53.13010236111111

[Prj-Shared projection]
Projection type=14
Projection method=of others.geo
Unit name=unit of others.geo
LatOrigin=2
LonOrigin=2
FalseEasting=2
FalseNorthing=2

[Dtf-Shared datum]
Method name=Helmert(7 Parameters)
Source=WGS84
Target ellipsoid=target of others.geo
Shift X=2
Shift Y=2
Shift Z=2
Rotation X=2
Rotation Y=2
Rotation Z=2
Scale=2
Description=that of others.geo

[Dtf-Half here]
Method name=Bursa/Wolfe(7 Parameters)
Source=source of others.geo
Target ellipsoid=target of others.geo
Shift X=2
Shift Y=2
Shift Z=2
Rotation X=2
Rotation Y=2
Rotation Z=2
Scale=2
Description=that of others.geo

[Elp-Shared ellipsoid]
SemiMajor=6371002
EccSqrd=0.0067

[Elp-Home ellipsoid]
SemiMajor=6378249.2
EccSqrd=0.006803511282849

[Units section]
Home unit=0.914400,yd
Shared unit=4,others
METERS=5,others
